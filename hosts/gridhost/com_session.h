// The control of vmGridViews.dll, made and handed its grid through COM as in any host.
#pragma once

#include <ole2.h>

#include "adapters/workbook/host.h"
#include "frontends/com/com_ptr.h"
#include "frontends/headless/headless_desktop.h"
#include "hosts/gridhost/session.h"
#include "servers/control/script_link.h"

namespace vmgv {

// COM on this thread, for as long as it lives.
class ComApartment {
 public:
  ComApartment();
  ComApartment(const ComApartment&) = delete;
  ComApartment& operator=(const ComApartment&) = delete;
  ~ComApartment() { OleUninitialize(); }
};

class ComSession final : public Session, private WorkbookHost {
 public:
  // Uses the libraries beside the program, registered or not. Throws Error. Within a ComApartment.
  explicit ComSession(const Options& options);
  ~ComSession() override;

  const ObjectRef& control() const noexcept override { return control_; }
  bool offers(Facet facet) const noexcept override { return application_.offers(facet); }
  SystemPort& system() noexcept override { return noDesktop_; }
  ScriptLink& scripts() const noexcept { return *scripts_; }

 private:
  void chooseLanguage();
  ObjectRef makeWorkbook(const char* programId);
  std::string targetPath() override;
  void finished(const std::string& path, std::int64_t rows) override { noteWorkbook(path, rows); }

  // The same core as the library's, asked only which dialogs there are.
  HeadlessDesktop noDesktop_;
  Application application_{noDesktop_, noDesktop_};
  DWORD texts_ = 0;
  ScriptLink* scripts_ = nullptr;
  ObjectRef control_;
};

}  // namespace vmgv

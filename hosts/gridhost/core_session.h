// The control as a part of this program, on the desktop of one of its front ends.
#pragma once

#include "adapters/workbook/host.h"
#include "hosts/gridhost/session.h"

namespace vmgv {

class CoreSession final : public Session, private WorkbookHost {
 public:
  // The desktop answers for windows and system; it makes objects of "Excel.Application" from now on.
  template <class Desktop>
  CoreSession(Desktop& desktop, const Options& options) : CoreSession(desktop, desktop, options) {
    desktop.objectFactory = [this](const std::string& programId) { return createObject(programId); };
  }

  const ObjectRef& control() const noexcept override { return control_; }
  bool offers(Facet facet) const noexcept override { return application_.offers(facet); }
  SystemPort& system() noexcept override { return system_; }

  std::filesystem::path documents = ".";  // where workbooks go that no script names

 private:
  CoreSession(WindowPort& window, SystemPort& system, const Options& options);

  ObjectRef createObject(const std::string& programId);
  std::string targetPath() override;
  void finished(const std::string& path, std::int64_t rows) override { noteWorkbook(path, rows); }

  SystemPort& system_;
  Application application_;
  ObjectRef control_;
};

}  // namespace vmgv

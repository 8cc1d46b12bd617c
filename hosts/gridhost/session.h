// One table in a grid with the control beside it, whatever front end shows them.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

#include "adapters/grid/engine.h"
#include "adapters/workbook/host.h"
#include "control/application.h"
#include "hosts/gridhost/options.h"
#include "hosts/player/stage.h"

namespace vmgv {

class Session final : private WorkbookHost {
 public:
  // The desktop answers for windows and system; it makes objects of "Excel.Application" from now on.
  template <class Desktop>
  Session(Desktop& desktop, const Options& options) : Session(desktop, desktop, options) {
    desktop.objectFactory = [this](const std::string& programId) { return createObject(programId); };
  }

  // Takes the rows of the table that the options name, tells its problems on standard error and keeps them.
  // Throws Error where nothing could be read.
  void load();
  const Problems& problems() const noexcept { return problems_; }
  const std::string& dataName() const noexcept { return data_; }

  const Application& application() const noexcept { return application_; }
  const std::shared_ptr<GridEngine>& engine() const noexcept { return engine_; }
  const ObjectRef& control() const noexcept { return control_; }

  // Carries the options' script out and tells on standard output what was written. The exit status.
  int play(User& user);

  // Where workbooks go that no script names.
  std::filesystem::path documents = ".";
  std::function<void(const std::string& path)> onWorkbook;  // one is complete

 private:
  Session(WindowPort& window, SystemPort& system, const Options& options);

  ObjectRef createObject(const std::string& programId);
  std::string targetPath() override;
  void finished(const std::string& path, std::int64_t rows) override;

  const Options options_;
  Application application_;
  std::shared_ptr<GridEngine> engine_ = std::make_shared<GridEngine>();
  ObjectRef grid_, control_;
  std::string data_;
  Problems problems_;
  std::filesystem::path workbook_;  // that a script named
  std::vector<std::string> written_;
};

}  // namespace vmgv

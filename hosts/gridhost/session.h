// One table in a grid with the control beside it, whatever front end shows them.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

#include "adapters/grid/engine.h"
#include "control/application.h"
#include "hosts/gridhost/options.h"
#include "hosts/player/stage.h"

namespace vmgv {

class Session {
 public:
  explicit Session(const Options& options);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  virtual ~Session() = default;

  // Takes the rows of the table that the options name, tells its problems on standard error and keeps them.
  // Throws Error where nothing could be read.
  void load();
  const Problems& problems() const noexcept { return problems_; }
  const std::string& dataName() const noexcept { return data_; }
  const std::shared_ptr<GridEngine>& engine() const noexcept { return engine_; }

  virtual const ObjectRef& control() const noexcept = 0;  // has the grid
  virtual bool offers(Facet facet) const noexcept = 0;    // whether the control has such a dialog
  virtual SystemPort& system() noexcept = 0;
  std::function<void(const std::string& path)> onWorkbook;  // one is complete

  // Carries the options' script out and tells on standard output what was written. The exit status.
  int play(User& user);

 protected:
  const Options& options() const noexcept { return options_; }
  const ObjectRef& grid() const noexcept { return grid_; }
  // Where the script wants the next workbook; empty: it does not say.
  const std::filesystem::path& namedWorkbook() const noexcept { return workbook_; }
  void noteWorkbook(const std::string& path, std::int64_t rows);

 private:
  void print(const std::filesystem::path& file);

  const Options options_;
  std::shared_ptr<GridEngine> engine_ = std::make_shared<GridEngine>();
  ObjectRef grid_;
  std::string data_;
  Problems problems_;
  std::filesystem::path workbook_;
  std::vector<std::string> written_;
};

}  // namespace vmgv

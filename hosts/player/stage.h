// What a script plays on: a host's control and grid, and the user of its front end.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <vector>

#include "frontends/user/user.h"
#include "support/automation/object.h"

namespace vmgv {

struct Stage {
  ObjectRef control;  // the editor control, late-bound
  ObjectRef grid;     // any object with the grid's members
  User& user;
  // Selects these display rows (from 1) and no others. Throws Error.
  std::function<void(const std::vector<std::int32_t>& rows)> selectRows;
  // Says where the next export leaves its workbook.
  std::function<void(const std::filesystem::path& file)> nameWorkbook;
  // Prints the grid into a PDF. Throws Error.
  std::function<void(const std::filesystem::path& file)> print;
};

}  // namespace vmgv

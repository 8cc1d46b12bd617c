// The display settings of a saved view: each a name and a value in words.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "adapters/grid/grid_layout.h"

namespace vmgv {

std::vector<std::pair<std::string, std::string>> savedSettings(const GridSettings& settings);

bool isSetting(std::string_view name) noexcept;
// False, and nothing done, where the value makes no sense; isSetting(name) holds. Quotes are undone.
bool takeSavedSetting(GridSettings& settings, std::string_view name, std::string_view value);

}  // namespace vmgv

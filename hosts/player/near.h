// Names that a misspelt one may have meant.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vmgv {

// Up to three of `names` that differ in few letters or hold the same beginning, the nearest first, as
// "a, b or c"; empty where none is near. Ignores ASCII case.
std::string nearNames(std::string_view wanted, const std::vector<std::string>& names);

}  // namespace vmgv

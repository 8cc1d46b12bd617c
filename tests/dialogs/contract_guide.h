// What the guide for authors of grids says that a dialog asks for.
#pragma once

#include <set>
#include <string>

namespace vmgv {

// "Columns.Count" and its like, from the table of the method's chapter.
std::set<std::string> membersInGuide(const std::string& method);

}  // namespace vmgv

// A table on a template's filled sheet: it grows and shrinks with the rows and takes over their header.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "adapters/workbook/area.h"

namespace vmgv::workbook {

struct TableFacts {
  std::string name;  // by which formulas and pivot tables call it
  Area area;
};
TableFacts tableFacts(std::string_view xml);  // of the table's part; XmlError

// Whether there can be a table over these headers: each has a text, and no two the same.
bool canHeadTable(std::span<const std::string> headers);

// The part of a table that lies over `written` and takes its first row as header; columns keep what they say
// besides their names. Its filter stays without criteria.
std::string tableOver(std::string_view xml, const Area& written, std::span<const std::string> headers);

}  // namespace vmgv::workbook

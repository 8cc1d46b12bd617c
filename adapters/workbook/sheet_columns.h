// The widths and formats of a template's columns, and the same with the widths that a fill has found.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "adapters/workbook/xml_scanner.h"

namespace vmgv::workbook {

struct FittedColumn {
  int column;
  double width;  // characters
};

class SheetColumns {
 public:
  void add(const XmlScanner& column);  // at the start of a <col>; XmlError for columns that no sheet has
  std::optional<std::uint16_t> formatOf(int column) const;
  std::uint16_t highestFormat() const;
  // The <cols> element; "" where there is nothing to say.
  std::string xml(std::span<const FittedColumn> fitted) const;

 private:
  struct Run {
    int first, last;
    std::optional<std::uint16_t> format;
    std::string tag;  // "<col .../>"
  };

  std::vector<Run> runs_;
};

// A number in an attribute between `least` and `most`; `missing` where it is not there. XmlError for any
// other.
int numberIn(const XmlScanner& xml, std::string_view attribute, int least, int most, int missing);
std::optional<std::uint16_t> formatIn(const XmlScanner& xml, std::string_view attribute);

}  // namespace vmgv::workbook

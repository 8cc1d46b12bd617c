// What stays of a template's sheet when its contents go: the formats of its rows, columns and cells, and all
// that stands around the rows.
//
// Rows that a filter hid are shown again, for its criteria go; a row's height stays where somebody chose it.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/workbook/area.h"
#include "adapters/workbook/sheet_columns.h"
#include "adapters/workbook/styles.h"
#include "adapters/workbook/xml_scanner.h"

namespace vmgv::workbook {

struct OldCell {
  std::uint16_t column;
  std::uint16_t format;  // its number
};

struct OldRow {
  int number;
  std::string_view attributes;  // " ht=\"20\" customHeight=\"1\""; as they stand in the sheet
  std::optional<std::uint16_t> format;
  std::span<const OldCell> cells;  // those with a format, from left to right
};

class SheetFrame {
 public:
  explicit SheetFrame(std::string xml);  // of the sheet's part; XmlError
  SheetFrame(const SheetFrame&) = delete;
  SheetFrame& operator=(const SheetFrame&) = delete;

  bool isProtected() const noexcept { return protected_; }
  bool hasFilter() const noexcept { return filtered_; }
  const std::vector<std::string>& tableParts() const noexcept { return tables_; }  // their relationships' ids
  std::uint16_t highestFormat() const;  // of all that rows, columns and cells name
  // The rows that say more than their number, from top to bottom.
  std::size_t rowCount() const noexcept { return rows_.size(); }
  OldRow row(std::size_t place) const;
  // The format that a cell of a row begins with; `old` is the row of its number where there is one.
  Style styleOf(const OldRow* old, int column) const;

  // The sheet's part around its rows, which stand from `used`'s first row to its last; `written` are the
  // exported cells. What stands before the rows, with the start of their element.
  std::string head(const Area& used, std::span<const FittedColumn> fitted) const;
  // From the end of the rows to where merged areas stand; the filter, if any, is over `written`.
  std::string middle(const Area& written) const;
  // The areas that were merged and meet no cell of `written`.
  std::vector<std::string> keptMerges(const Area& written) const;
  // What stands behind merged areas, without the tables that were given up.
  std::string tail(std::span<const std::string> tablesGivenUp) const;

 private:
  struct Row {
    int number = 0;
    std::uint32_t firstCell = 0;
    std::uint16_t attributes = 0;  // its place in the list
    std::optional<std::uint16_t> format;
  };
  struct Child {  // of the root, behind the rows
    std::string name;
    std::size_t begin, end;
  };

  void readHead(XmlScanner& xml);
  void readRows(XmlScanner& xml);
  void readRow(XmlScanner& xml, int number);
  void readChild(XmlScanner& xml);
  std::uint16_t rowAttributes(const XmlScanner& xml);
  std::string_view piece(std::size_t begin, std::size_t end) const {
    return std::string_view(xml_).substr(begin, end - begin);
  }

  std::string xml_;
  bool protected_ = false, filtered_ = false;
  std::size_t dimensionBegin_ = 0, dimensionEnd_ = 0;
  std::size_t propertiesBegin_ = 0, propertiesEnd_ = 0;  // of the start of sheetPr
  std::size_t columnsBegin_ = 0, columnsEnd_ = 0;
  std::size_t rowsBegin_ = 0, rowsEnd_ = 0;
  SheetColumns columns_;
  std::vector<Row> rows_;
  std::vector<OldCell> cells_;
  std::vector<std::string> attributes_{""};
  std::map<std::string, std::uint16_t> attributePlaces_;
  std::vector<Child> children_;
  std::vector<Area> merges_;
  std::vector<std::string> tables_;
};

}  // namespace vmgv::workbook

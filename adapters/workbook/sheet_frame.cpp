#include "adapters/workbook/sheet_frame.h"

#include <algorithm>

#include "adapters/workbook/encode.h"
#include "adapters/workbook/xml_edit.h"

namespace vmgv::workbook {
namespace {

using Token = XmlScanner::Token;

// The elements that stand between a sheet's rows and its merged areas (ECMA-376 part 1, 18.3.1.99).
constexpr std::string_view kBeforeMerges[] = {"sheetCalcPr",     "sheetProtection", "protectedRanges",
                                              "scenarios",       "autoFilter",      "sortState",
                                              "dataConsolidate", "customSheetViews"};

bool standsBeforeMerges(std::string_view name) {
  return std::find(std::begin(kBeforeMerges), std::end(kBeforeMerges), name) != std::end(kBeforeMerges);
}

Area areaIn(const std::string& name) {
  if (const auto area = areaNamed(name)) return *area;
  throw XmlError("\"" + name + "\" names no cells");
}

}  // namespace

SheetFrame::SheetFrame(std::string xml) : xml_(std::move(xml)) {
  XmlScanner scanner(xml_);
  for (Token token = scanner.next(); token != Token::Finished; token = scanner.next()) {
    if (token != Token::Start || scanner.depth() != 2) continue;
    if (rowsEnd_ > 0) {
      readChild(scanner);
    } else if (scanner.name() == "sheetData") {
      readRows(scanner);
    } else {
      readHead(scanner);
    }
  }
  if (rowsEnd_ == 0) throw XmlError("it has no rows element");
  if (!filtered_) return;
  for (std::string& attributes : attributes_) {
    const std::string tag = withAttribute("<row" + attributes + ">", "hidden", {});
    attributes = tag.substr(4, tag.size() - 5);
  }
}

void SheetFrame::readHead(XmlScanner& xml) {
  const std::string name(xml.name());
  const std::size_t begin = xml.begin();
  if (name == "sheetPr") {
    propertiesBegin_ = begin;
    propertiesEnd_ = xml.end();
  }
  if (name == "cols") {
    for (Token token = xml.next(); token != Token::End || xml.depth() > 1; token = xml.next()) {
      if (token == Token::Start && xml.name() == "col") columns_.add(xml);
    }
    columnsBegin_ = begin;
    columnsEnd_ = xml.end();
    return;
  }
  xml.skipElement();
  if (name != "dimension") return;
  dimensionBegin_ = begin;
  dimensionEnd_ = xml.end();
}

void SheetFrame::readRows(XmlScanner& xml) {
  rowsBegin_ = xml.begin();
  int number = 0;
  for (Token token = xml.next(); token != Token::End || xml.depth() > 1; token = xml.next()) {
    if (token != Token::Start || xml.name() != "row") continue;
    number = numberIn(xml, "r", number + 1, kMaxRows, number + 1);  // rows are in order
    readRow(xml, number);
  }
  rowsEnd_ = xml.end();
}

void SheetFrame::readRow(XmlScanner& xml, int number) {
  Row row{number, static_cast<std::uint32_t>(cells_.size()), rowAttributes(xml), {}};
  if (isTrue(xml.attribute("customFormat"))) row.format = formatIn(xml, "s");
  const std::size_t outside = xml.depth() - 1;
  int column = 0;
  for (Token token = xml.next(); token != Token::End || xml.depth() > outside; token = xml.next()) {
    if (token != Token::Start || xml.name() != "c") continue;
    ++column;
    if (const auto name = xml.attribute("r")) column = areaIn(*name).left;
    const auto format = formatIn(xml, "s");
    if (format.value_or(0) != 0) cells_.push_back({static_cast<std::uint16_t>(column), *format});
    xml.skipElement();
  }
  const auto first = cells_.begin() + row.firstCell;
  std::stable_sort(first, cells_.end(),
                   [](const OldCell& a, const OldCell& b) { return a.column < b.column; });
  rows_.push_back(row);
}

// Without the number and what was true of the old contents alone.
std::uint16_t SheetFrame::rowAttributes(const XmlScanner& xml) {
  std::string tag(xml.token());
  for (const char* gone : {"r", "spans", "dyDescent"}) tag = withAttribute(tag, gone, {});
  if (!isTrue(xml.attribute("customHeight")))
    tag = withAttribute(withAttribute(tag, "ht", {}), "customHeight", {});
  const std::size_t begin = std::min(tag.find_first_of(" \t\r\n"), tag.size());
  const std::size_t end = std::max(begin, tag.find_last_not_of("/> \t\r\n") + 1);
  std::string attributes = tag.substr(begin, end - begin);
  if (attributes.find(':') != std::string::npos)
    attributes.clear();  // of name spaces that are not declared here
  const auto [found, isNew] =
      attributePlaces_.try_emplace(attributes, static_cast<std::uint16_t>(attributes_.size()));
  if (isNew && attributes_.size() == UINT16_MAX) return 0;  // more kinds of rows than anybody chose by hand
  if (isNew) attributes_.push_back(std::move(attributes));
  return found->second;
}

void SheetFrame::readChild(XmlScanner& xml) {
  const std::string name(xml.name());
  const std::size_t begin = xml.begin(), outside = xml.depth() - 1;
  protected_ = protected_ || (name == "sheetProtection" && isTrue(xml.attribute("sheet")));
  filtered_ = filtered_ || name == "autoFilter";
  for (Token token = Token::Start; token != Token::End || xml.depth() > outside; token = xml.next()) {
    if (token != Token::Start) continue;
    if (xml.name() == "mergeCell") merges_.push_back(areaIn(xml.attribute("ref").value_or("")));
    if (xml.name() == "tablePart") tables_.push_back(xml.attribute("id").value_or(""));
  }
  children_.push_back({name, begin, xml.end()});
}

std::uint16_t SheetFrame::highestFormat() const {
  std::uint16_t highest = columns_.highestFormat();
  for (const OldCell& cell : cells_) highest = std::max(highest, cell.format);
  for (const Row& row : rows_) highest = std::max(highest, row.format.value_or(0));
  return highest;
}

OldRow SheetFrame::row(std::size_t place) const {
  const Row& row = rows_[place];
  const std::size_t end = place + 1 < rows_.size() ? rows_[place + 1].firstCell : cells_.size();
  return {row.number, attributes_[row.attributes], row.format,
          std::span(cells_).subspan(row.firstCell, end - row.firstCell)};
}

Style SheetFrame::styleOf(const OldRow* old, int column) const {
  if (old) {
    const auto found = std::lower_bound(old->cells.begin(), old->cells.end(), column,
                                        [](const OldCell& cell, int wanted) { return cell.column < wanted; });
    if (found != old->cells.end() && found->column == column) return StyleTable::ofBase(found->format);
    if (old->format) return StyleTable::ofBase(*old->format);
  }
  return StyleTable::ofBase(columns_.formatOf(column).value_or(0));
}

std::string SheetFrame::head(const Area& used, std::span<const FittedColumn> fitted) const {
  XmlEdit edit(piece(0, rowsBegin_));
  if (propertiesEnd_ > 0 && filtered_) {
    edit.replace(propertiesBegin_, propertiesEnd_,
                 withAttribute(piece(propertiesBegin_, propertiesEnd_), "filterMode", {}));
  }
  if (dimensionEnd_ > 0) {
    edit.replace(dimensionBegin_, dimensionEnd_,
                 std::string("<dimension") + kSheetNamespace + " ref=\"" + areaName(used) + "\"/>");
  }
  const bool hadColumns = columnsEnd_ > 0;
  edit.replace(hadColumns ? columnsBegin_ : rowsBegin_, hadColumns ? columnsEnd_ : rowsBegin_,
               columns_.xml(fitted));
  return edit.result() + "<sheetData" + kSheetNamespace + ">";
}

std::string SheetFrame::middle(const Area& written) const {
  std::string xml;
  for (const Child& child : children_) {
    if (child.name == "autoFilter") {
      xml += std::string("<autoFilter") + kSheetNamespace + " ref=\"" + areaName(written) + "\"/>";
    } else if (child.name != "sortState" && standsBeforeMerges(child.name)) {
      xml += piece(child.begin, child.end);
    }
  }
  return xml;
}

std::vector<std::string> SheetFrame::keptMerges(const Area& written) const {
  std::vector<std::string> kept;
  for (const Area& area : merges_) {
    if (!meet(area, written)) kept.push_back(areaName(area));
  }
  return kept;
}

std::string SheetFrame::tail(std::span<const std::string> tablesGivenUp) const {
  std::string xml;
  std::size_t end = rowsEnd_;
  for (const Child& child : children_) {
    end = child.end;
    if (standsBeforeMerges(child.name) || child.name == "mergeCells") continue;
    if (child.name != "tableParts" || tablesGivenUp.empty()) {
      xml += piece(child.begin, child.end);
      continue;
    }
    XmlScanner parts(piece(child.begin, child.end));
    std::string left;
    int count = 0;
    for (Token token = parts.next(); token != Token::Finished; token = parts.next()) {
      if (token != Token::Start || parts.name() != "tablePart") continue;
      const std::string id = parts.attribute("id").value_or("");
      if (std::find(tablesGivenUp.begin(), tablesGivenUp.end(), id) != tablesGivenUp.end()) continue;
      const std::size_t begin = parts.begin();
      parts.skipElement();
      left += piece(child.begin + begin, child.begin + parts.end());
      ++count;
    }
    const std::string_view whole = piece(child.begin, child.end), tag = whole.substr(0, whole.find('>') + 1);
    if (count > 0) {
      xml += withAttribute(tag, "count", std::to_string(count)) + left + "</" +
             besideName(tag, "tableParts") + ">";
    }
  }
  return xml + xml_.substr(end);
}

}  // namespace vmgv::workbook

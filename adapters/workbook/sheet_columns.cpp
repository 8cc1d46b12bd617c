#include "adapters/workbook/sheet_columns.h"

#include <algorithm>
#include <charconv>

#include "adapters/workbook/area.h"
#include "adapters/workbook/encode.h"
#include "adapters/workbook/xml_edit.h"

namespace vmgv::workbook {
namespace {

constexpr int kMostFormats = 65535;

std::string withRange(std::string_view tag, int first, int last) {
  return withAttribute(withAttribute(tag, "min", std::to_string(first)), "max", std::to_string(last));
}

std::string withWidth(std::string_view tag, double width) {
  char digits[32];
  const std::string text(digits, encodeNumber(digits, width));
  return withAttribute(withAttribute(withAttribute(tag, "width", text), "bestFit", "1"), "customWidth", "1");
}

}  // namespace

int numberIn(const XmlScanner& xml, std::string_view attribute, int least, int most, int missing) {
  const auto text = xml.attribute(attribute);
  if (!text) return missing;
  int number = 0;
  const char* const end = text->data() + text->size();
  const auto read = std::from_chars(text->data(), end, number);
  if (read.ec != std::errc() || read.ptr != end || number < least || number > most) {
    throw XmlError("\"" + *text + "\" is no " + std::string(attribute) + " of " + std::string(xml.name()));
  }
  return number;
}

std::optional<std::uint16_t> formatIn(const XmlScanner& xml, std::string_view attribute) {
  const int number = numberIn(xml, attribute, 0, kMostFormats, -1);
  if (number < 0) return {};
  return static_cast<std::uint16_t>(number);
}

void SheetColumns::add(const XmlScanner& column) {
  const int first = numberIn(column, "min", 1, kMaxColumns, 1);
  const std::string_view token = column.token();
  const std::string tag(token.substr(0, token.size() - (token.ends_with("/>") ? 2 : 1)));
  const auto format = formatIn(column, "style");
  // The tag's prefix would need its declaration: what is written later is in the default name space.
  runs_.push_back({first, numberIn(column, "max", first, kMaxColumns, first), format,
                   "<col" + tag.substr(std::min(tag.find_first_of(" \t\r\n"), tag.size())) + "/>"});
}

std::optional<std::uint16_t> SheetColumns::formatOf(int column) const {
  for (const Run& run : runs_) {
    if (run.first <= column && column <= run.last) return run.format;
  }
  return {};
}

std::uint16_t SheetColumns::highestFormat() const {
  std::uint16_t highest = 0;
  for (const Run& run : runs_) highest = std::max(highest, run.format.value_or(0));
  return highest;
}

std::string SheetColumns::xml(std::span<const FittedColumn> fitted) const {
  std::vector<Run> runs = runs_;
  for (const FittedColumn& own : fitted) {
    const auto found = std::find_if(runs.begin(), runs.end(), [&](const Run& run) {
      return run.first <= own.column && own.column <= run.last;
    });
    if (found == runs.end()) {
      runs.push_back({own.column, own.column, {}, withWidth("<col/>", own.width)});
      continue;
    }
    const Run whole = *found;
    *found = {own.column, own.column, {}, withWidth(whole.tag, own.width)};
    if (whole.first < own.column) runs.push_back({whole.first, own.column - 1, {}, whole.tag});
    if (own.column < whole.last) runs.push_back({own.column + 1, whole.last, {}, whole.tag});
  }
  if (runs.empty()) return {};
  std::sort(runs.begin(), runs.end(), [](const Run& a, const Run& b) { return a.first < b.first; });
  std::string xml = std::string("<cols") + kSheetNamespace + ">";
  for (const Run& run : runs) xml += withRange(run.tag, run.first, run.last);
  return xml + "</cols>";
}

}  // namespace vmgv::workbook

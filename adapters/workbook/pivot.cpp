#include "adapters/workbook/pivot.h"

#include <algorithm>
#include <charconv>
#include <numeric>
#include <set>
#include <unordered_map>

#include "adapters/workbook/encode.h"
#include "adapters/workbook/folded_text.h"
#include "adapters/workbook/sheet_stream.h"
#include "support/automation/error.h"

namespace vmgv::workbook {
namespace {

constexpr std::size_t kMostLines = 10000;  // more than anybody looks through
constexpr std::size_t kMostLabel = 255;    // characters of a pivot table's item

bool isFieldName(const std::string& header) { return !header.empty() && utf16Units(header) <= kMostLabel; }

// Names that programs accept beside one another: a number behind what was there already.
std::vector<std::string> fieldNames(const std::vector<std::string>& headers, int count) {
  std::vector<std::string> names(headers.begin(), headers.begin() + count);
  std::set<std::u32string> used;
  for (std::string& name : names) {
    const std::string first = name;
    for (int number = 2; !used.insert(folded(name)).second; ++number) name = first + std::to_string(number);
  }
  return names;
}

// Goes through the rows below the first one of a sheet's XML, as its stream has written it, until `visit`
// returns false; tells whether it never did.
template <class Visit>
bool eachRow(const PackedStream& rows, Visit visit) {
  constexpr std::string_view kRowEnd = "</row>";
  std::string kept;  // the beginning of a row
  bool first = true, goesOn = true;
  rows.readText([&](std::string_view text) {
    kept += text;
    std::size_t begin = 0, end = kept.find(kRowEnd);
    for (; goesOn && end != std::string::npos; end = kept.find(kRowEnd, begin)) {
      end += kRowEnd.size();
      if (!first) goesOn = visit(std::string_view(kept).substr(begin, end - begin));
      first = false;
      begin = end;
    }
    kept.erase(0, begin);
    return goesOn;
  });
  return goesOn;
}

std::string_view between(std::string_view text, std::string_view before, std::string_view after) {
  const std::size_t begin = text.find(before) + before.size();
  return text.substr(begin, text.find(after, begin) - begin);
}

// The cells of one column, whatever their row.
class CellReader {
 public:
  explicit CellReader(int column) : column_(column) {}

  // The element of the row's cell; "" where it has no contents. A cell without a name follows the one before.
  std::string_view in(std::string_view row) const {
    constexpr std::string_view kCell = "<c", kNamed = "<c r=\"";
    int column = 0;
    for (std::size_t at = row.find(kCell); at != std::string_view::npos; at = row.find(kCell, at + 1)) {
      const std::size_t tagEnd = row.find('>', at);
      const std::string_view tag = row.substr(at, tagEnd - at);
      const bool isNamed = tag.starts_with(kNamed);
      const auto place = isNamed ? areaNamed(between(tag, kNamed, "\"")) : std::nullopt;
      column = place ? place->left : column + 1;
      if (column < column_) continue;
      if (column > column_ || tag.ends_with('/')) return {};
      return row.substr(tagEnd, row.find("</c>", tagEnd) - tagEnd);
    }
    return {};
  }
  std::string_view textIn(std::string_view row) const {
    const std::string_view cell = in(row);
    return cell.empty() ? cell : between(cell.substr(cell.find("<t")), ">", "</t>");
  }
  double numberIn(std::string_view row) const {
    double number = 0;
    if (const std::string_view cell = in(row); !cell.empty()) {
      const std::string_view digits = between(cell, "<v>", "</v>");
      std::from_chars(digits.data(), digits.data() + digits.size(), number);
    }
    return number;
  }

 private:
  int column_;
};

// The lines found so far, by their texts. A spelling that has come before is found without folding it again.
class LineFinder {
 public:
  // Null where there is no room for another one.
  double* resultOf(std::string_view label) {
    const auto known = spellings_.find(label);
    if (known != spellings_.end()) return &lines_[known->second].result;
    if (utf16Units(label) > kMostLabel || spellings_.size() == kMostLines) return nullptr;
    std::u32string key = folded(label);
    const auto [place, isNew] = places_.try_emplace(key, lines_.size());
    spellings_.emplace(label, place->second);
    if (isNew) {
      lines_.push_back({std::string(label)});
      keys_.push_back(std::move(key));
    }
    return &lines_[place->second].result;
  }
  // By their texts, the blank one last.
  std::vector<PivotLine> sorted() const {
    std::vector<std::size_t> order(lines_.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::sort(order.begin(), order.end(), [this](std::size_t a, std::size_t b) {
      return std::pair(keys_[a].empty(), keys_[a]) < std::pair(keys_[b].empty(), keys_[b]);
    });
    std::vector<PivotLine> lines;
    lines.reserve(order.size());
    for (const std::size_t place : order) lines.push_back(lines_[place]);
    return lines;
  }

 private:
  struct Hash : std::hash<std::string_view> {
    using is_transparent = void;
  };

  std::vector<PivotLine> lines_;
  std::vector<std::u32string> keys_;  // theirs
  std::unordered_map<std::u32string, std::size_t> places_;
  std::unordered_map<std::string, std::size_t, Hash, std::equal_to<>> spellings_;
};

}  // namespace

Area pivotSource(const SheetStream& sheet) {
  const auto& headers = sheet.headers();
  const auto columns = std::find_if_not(headers.begin(), headers.end(), isFieldName) - headers.begin();
  const int rows = sheet.written().bottom;
  if (columns == 0 || rows < 2) {
    throw Error(ErrorNumber::Application, rows < 2
                                              ? "A pivot table needs a row below the headers"
                                              : "A pivot table needs a header of 1 to 255 characters in A1");
  }
  return {1, 1, rows, static_cast<int>(columns)};
}

Pivot summarise(const SheetStream& sheet) {
  Pivot pivot;
  pivot.source = pivotSource(sheet);
  const int columns = pivot.source.right;
  pivot.fields = fieldNames(sheet.headers(), columns);
  const auto nextOf = [&](Cell::Kind kind, int column) {
    while (column <= columns && !sheet.holdsOnly(column, kind)) ++column;
    return column;
  };
  pivot.dataField = nextOf(Cell::Kind::Number, 1);
  pivot.counts = pivot.dataField > columns;
  if (pivot.counts) pivot.dataField = 1;
  const CellReader data(pivot.dataField);
  const auto dataOf = [&](std::string_view row) {
    return pivot.counts ? static_cast<double>(!data.in(row).empty()) : data.numberIn(row);
  };

  const PackedStream& rows = sheet.rowsXml();
  for (int column = nextOf(Cell::Kind::Text, 1); column <= columns && !pivot.lineField;
       column = nextOf(Cell::Kind::Text, column + 1)) {
    const CellReader labels(column);
    LineFinder lines;
    const bool fits = eachRow(rows, [&](std::string_view row) {
      double* const result = lines.resultOf(labels.textIn(row));
      if (result) *result += dataOf(row);
      return result != nullptr;
    });
    if (!fits) continue;  // too many texts, or too long
    pivot.lineField = column;
    pivot.lines = lines.sorted();
  }
  if (!pivot.lineField) {
    pivot.lines = {{}};
    eachRow(rows, [&](std::string_view row) { return pivot.lines[0].result += dataOf(row), true; });
  }
  for (const PivotLine& line : pivot.lines) pivot.total += line.result;
  return pivot;
}

}  // namespace vmgv::workbook

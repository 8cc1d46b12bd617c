// Interning of number formats and the styles part.
#include "adapters/workbook/styles.h"

#include "adapters/workbook/encode.h"
#include "support/automation/error.h"

namespace vmgv::workbook {
namespace {

// Codes that the file format knows by number (ECMA-376 part 1, 18.8.30), in the table's first places.
struct BuiltIn {
  std::string_view code;
  int id;
};
constexpr BuiltIn kBuiltIn[] = {
    {"General", 0}, {"@", 49}, {kDayFormat, 14}, {kDayTimeFormat, 22}, {kTimeFormat, 21}};
constexpr std::size_t kBuiltIns = std::size(kBuiltIn);
constexpr int kFirstCustomId = 164;

constexpr std::size_t kMaxFormats = 32000;  // two styles each: a workbook has at most 64,000
constexpr std::uint32_t kMaxStyles = 64000;
constexpr std::size_t kMaxCode = 255;

}  // namespace

StyleTable::StyleTable() {
  for (const BuiltIn& format : kBuiltIn) place(format.code);
}

StyleTable::StyleTable(std::vector<BaseStyle> bases) : StyleTable() { bases_ = std::move(bases); }

Style StyleTable::withFormat(Style style, std::string_view code) {
  if (codes_[last_] != code) last_ = place(code);
  if (isTemplate() && bases_[baseOf(style)].code == code) return style & ~0xFFFEu;
  return (style & ~0xFFFEu) | 2u * last_;
}

std::uint32_t StyleTable::numberInTemplate(Style style) {
  if ((style & 0xFFFF) == 0) return baseOf(style);
  const auto next = static_cast<std::uint32_t>(bases_.size() + derived_.size());
  const auto [found, isNew] = numbers_.try_emplace(style, next);
  if (!isNew) return found->second;
  if (next == kMaxStyles) {
    numbers_.erase(found);
    throw Error(ErrorNumber::Application, "The workbook has no room for another cell format");
  }
  derived_.push_back(style);
  return next;
}

std::vector<std::string> StyleTable::customCodes() const {
  return {codes_.begin() + static_cast<std::ptrdiff_t>(kBuiltIns), codes_.end()};
}

int StyleTable::numberFormatId(Style style, int firstFree) const {
  const std::size_t at = (style & 0xFFFF) / 2;
  return at < kBuiltIns ? kBuiltIn[at].id : firstFree + static_cast<int>(at - kBuiltIns);
}

std::string StyleTable::builtInCode(int id) {
  for (const BuiltIn& format : kBuiltIn) {
    if (format.id == id) return std::string(format.code);
  }
  return "number format " + std::to_string(id);
}

std::uint16_t StyleTable::place(std::string_view code) {
  const auto [found, isNew] =
      places_.try_emplace(std::string(code), static_cast<std::uint16_t>(codes_.size()));
  if (!isNew) return found->second;
  if (code.empty() || code.size() > kMaxCode || codes_.size() == kMaxFormats) {
    places_.erase(found);
    throw Error(ErrorNumber::Application,
                codes_.size() == kMaxFormats
                    ? "The workbook has no room for another number format"
                    : "A number format has 1 to 255 characters, this one " + std::to_string(code.size()));
  }
  codes_.emplace_back(code);
  return found->second;
}

std::string StyleTable::xml() const {
  std::string custom, cells;
  for (std::size_t i = 0; i < codes_.size(); ++i) {
    const int id = i < kBuiltIns ? kBuiltIn[i].id : kFirstCustomId + static_cast<int>(i - kBuiltIns);
    const std::string number = std::to_string(id);
    if (i >= kBuiltIns) {
      custom.append("<numFmt numFmtId=\"").append(number).append("\" formatCode=\"");
      custom.append(attributeText(codes_[i])).append("\"/>");
    }
    std::string format = "<xf numFmtId=\"";
    format.append(number).append("\" fontId=\"0\" fillId=\"0\" borderId=\"0\" xfId=\"0\"");
    if (id != 0) format.append(" applyNumberFormat=\"1\"");
    cells.append(format).append("/>");
    cells.append(format).append(" applyAlignment=\"1\"><alignment wrapText=\"1\"/></xf>");
  }
  if (!custom.empty()) {
    custom = "<numFmts count=\"" + std::to_string(codes_.size() - kBuiltIns) + "\">" + custom + "</numFmts>";
  }
  return std::string("<styleSheet") + kSheetNamespace + ">" + custom +
         "<fonts count=\"1\"><font><sz val=\"11\"/><name val=\"Calibri\"/><family val=\"2\"/></font></fonts>"
         "<fills count=\"2\"><fill><patternFill patternType=\"none\"/></fill>"
         "<fill><patternFill patternType=\"gray125\"/></fill></fills>"
         "<borders count=\"1\"><border><left/><right/><top/><bottom/><diagonal/></border></borders>"
         "<cellStyleXfs count=\"1\"><xf numFmtId=\"0\" fontId=\"0\" fillId=\"0\" "
         "borderId=\"0\"/></cellStyleXfs>"
         "<cellXfs count=\"" +
         std::to_string(2 * codes_.size()) + "\">" + cells +
         "</cellXfs>"
         "<cellStyles count=\"1\"><cellStyle name=\"Normal\" xfId=\"0\" builtinId=\"0\"/></cellStyles>"
         "</styleSheet>";
}

}  // namespace vmgv::workbook

#include "adapters/grid/row_styles.h"

#include <utility>

namespace vmgv {
namespace {

// Calls use(attribute, what the style has for it, where a row has it).
template <class Use>
void eachAttribute(const FormatStyle& style, RowStyle& row, Use use) {
  use(StyleAttribute::BackColor, style.backColor, row.backColor);
  use(StyleAttribute::ForeColor, style.foreColor, row.foreColor);
  use(StyleAttribute::FontName, style.fontName, row.font.name);
  use(StyleAttribute::FontSize, style.fontSize, row.font.size);
  use(StyleAttribute::FontBold, style.fontBold, row.font.bold);
  use(StyleAttribute::FontItalic, style.fontItalic, row.font.italic);
  use(StyleAttribute::FontUnderline, style.fontUnderline, row.font.underline);
  use(StyleAttribute::FontStrikethru, style.fontStrikethru, row.font.strikethrough);
}

constexpr unsigned bitOf(StyleAttribute attribute) { return 1u << static_cast<unsigned>(attribute); }

unsigned attributesOf(const FormatStyle& style) {
  unsigned set = 0;
  RowStyle unused;
  eachAttribute(style, unused, [&](StyleAttribute attribute, const auto& value, const auto&) {
    if (value) set |= bitOf(attribute);
  });
  return set;
}

}  // namespace

void RowStyles::follow(const GridSettings& settings, std::span<const ConditionHandle> conditions,
                       std::span<const GridColumn> columns, std::span<const ColumnData> data) {
  own_ = {settings.backColor, settings.foreColor, settings.font, false};
  alternates_ = settings.useEvenOddColor;
  shown_.reset();
  if (cells_.empty()) {
    for (std::size_t i = 0; i < data.size(); ++i) cells_.emplace_back(data[i], columns[i].valueList.get());
  }
  std::vector<Rule> before = std::exchange(rules_, {});
  rules_.reserve(conditions.size());
  for (std::size_t i = 0; i < conditions.size(); ++i) {
    const SharedCondition& condition = *conditions[i];
    if (i < before.size() && before[i].condition.isSame(condition)) {
      rules_.push_back(std::move(before[i]));
    } else {
      rules_.push_back(compiled(condition, columns, data));
    }
  }
}

void RowStyles::forget() {
  rules_.clear();
  cells_.clear();
  shown_.reset();
}

RowStyles::Rule RowStyles::compiled(const SharedCondition& condition, std::span<const GridColumn> columns,
                                    std::span<const ColumnData> data) {
  const auto column = static_cast<std::size_t>(condition->colIndex) - 1;
  const bool isThere = column < data.size();
  return {condition, isThere ? column : 0,
          isThere ? Comparison(*condition, data[column], columns[column].valueList.get()) : Comparison(),
          attributesOf(condition->style)};
}

bool RowStyles::matches(const Rule& rule, std::uint32_t record) {
  return rule.comparison.matches(record, cells_[rule.column]);
}

// From the last condition to the first: what a later one has set an earlier one cannot.
const RowStyle& RowStyles::styleOf(std::uint32_t record, std::uint32_t ordinal) {
  const bool odd = alternates_ && ordinal % 2 == 1;
  if (shown_ == std::pair(record, odd)) return style_;
  shown_ = {record, odd};
  style_ = own_;
  unsigned open = (1u << kStyleAttributes) - 1;
  for (auto rule = rules_.rbegin(); rule != rules_.rend() && open != 0; ++rule) {
    const unsigned wanted = rule->sets & open;
    if (wanted == 0 || !matches(*rule, record)) continue;
    eachAttribute(rule->condition->style, style_,
                  [&](StyleAttribute attribute, const auto& value, auto& place) {
                    if ((wanted & bitOf(attribute)) != 0) place = *value;
                  });
    open &= ~wanted;
  }
  style_.alternate = odd && (open & bitOf(StyleAttribute::BackColor)) != 0;
  return style_;
}

RowReasons RowStyles::reasonsOf(std::uint32_t record) {
  RowReasons reasons;
  for (const Rule& rule : rules_) {
    if (!matches(rule, record)) continue;
    for (std::size_t attribute = 0; attribute < kStyleAttributes; ++attribute) {
      if ((rule.sets >> attribute & 1) != 0) reasons.winner[attribute] = reasons.matching.size();
    }
    reasons.matching.push_back(rule.condition);
  }
  return reasons;
}

RecordSet RowStyles::matchingRecords(std::size_t condition) {
  return rules_[condition].comparison.matchingRecords(cells_[rules_[condition].column]);
}

}  // namespace vmgv

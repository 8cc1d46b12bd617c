#include "adapters/grid/comparison.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>
#include <numeric>

#include "adapters/grid/collation.h"
#include "adapters/grid/field_text.h"
#include "adapters/grid/typed_text.h"
#include "support/automation/convert.h"
#include "support/automation/date.h"

namespace vmgv {
namespace {

enum Operator : std::int16_t {
  kEqual,
  kDifferent,
  kGreater,
  kLess,
  kGreaterOrEqual,
  kLessOrEqual,
  kBetween,
  kNotBetween,
  kContains,
  kDoesNotContain
};

constexpr double kHalfSecond = 0.5 / 86400;  // days
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr const char* kBehindAllTexts = "\xFF";  // of folded ones, which begin with a byte below 0x80

bool hasTwoOperands(const FormatCondition& condition) {
  return condition.op == kBetween || condition.op == kNotBetween;
}

// What an operand stands for: one value, or all values of a day.
template <class T>
struct Ends {
  T low, high;
};

template <class T>
Range<T> rangeOf(std::int16_t op, const Ends<T>& first, const Ends<T>& second, const T& least,
                 const T& most) {
  switch (op) {
    case kEqual: return {first.low, first.high, false};
    case kDifferent: return {first.low, first.high, true};
    case kGreater: return {least, first.high, true};
    case kLess: return {first.low, most, true};
    case kGreaterOrEqual: return {first.low, most, false};
    case kLessOrEqual: return {least, first.high, false};
    default: return {std::min(first.low, second.low), std::max(first.high, second.high), op == kNotBetween};
  }
}

// Nothing where endsOf(operand) finds none.
template <class T, class EndsOf>
std::optional<Range<T>> rangeOf(const FormatCondition& condition, EndsOf endsOf, const T& least,
                                const T& most) {
  const std::optional<Ends<T>> first = endsOf(condition.value1);
  const std::optional<Ends<T>> second = hasTwoOperands(condition) ? endsOf(condition.value2) : first;
  if (!first || !second) return {};
  return rangeOf(condition.op, *first, *second, least, most);
}

// What lies behind an end is an interval as well, and that is found faster.
std::optional<Range<double>> inside(std::optional<Range<double>> range) {
  if (!range || !range->outside) return range;
  if (range->low == -kInfinity) return Range<double>{std::nextafter(range->high, kInfinity), kInfinity};
  if (range->high == kInfinity) return Range<double>{-kInfinity, std::nextafter(range->low, -kInfinity)};
  return range;
}

bool isAbsent(const Value& operand) { return operand.isNull() || operand.isMissing() || operand.isObject(); }

std::optional<double> numberOf(const Value& operand) {
  if (isAbsent(operand) || operand.isEmpty()) return {};
  if (operand.isText()) return numberFromTyped(operand.text());
  const double number = toDouble(operand);
  if (!std::isfinite(number)) return {};
  return number;
}

std::optional<Ends<double>> numberEnds(const Value& operand) {
  const auto number = numberOf(operand);
  if (!number) return {};
  return Ends<double>{*number, *number};
}

// Beyond 2^53 doubles would take neighbours for the same number.
std::optional<Ends<std::int64_t>> wideEnds(const Value& operand) {
  if (!numberOf(operand)) return {};
  const auto whole = wholeFromField(operand.isText() ? *plainNumber(operand.text()) : toText(operand));
  if (!whole) return {};
  return Ends<std::int64_t>{*whole, *whole};
}

std::optional<Ends<double>> flagEnds(const Value& operand) {
  auto number = numberOf(operand);
  if (!number && operand.isText()) number = booleanFromField(operand.text());
  if (!number) return {};
  const double flag = *number != 0 ? 1 : 0;
  return Ends<double>{flag, flag};
}

// A date as a number that grows with time; before day 0 the fraction of an automation date counts backwards.
double momentOf(double days) {
  if (days >= 0) return days;
  const double day = std::trunc(days);
  return day + std::fabs(days - day);
}

std::optional<Ends<double>> dateEnds(const Value& operand) {
  std::optional<Date> date;
  if (operand.isText()) {
    date = dateFromTyped(operand.text());
  } else if (const auto number = numberOf(operand)) {
    date = Date{*number};
  }
  if (!date) return {};
  const double moment = momentOf(date->days);
  return Ends<double>{moment - kHalfSecond, hasTime(*date) ? moment + kHalfSecond : moment + 1 - kHalfSecond};
}

// A text with zeros in front is a code, as when tables are read.
std::optional<double> numberInText(std::string_view text) {
  if (text.empty() || text.size() > 40) return {};
  if (text.size() > 1 && text[0] == '0' && text[1] >= '0' && text[1] <= '9') return {};
  return numberFromTyped(text);
}

std::optional<double> momentInText(std::string_view text) {
  const auto date = dateFromTyped(text);
  if (!date) return {};
  return momentOf(date->days);
}

std::string folded(std::string_view text) {
  std::string key;
  appendFoldedText(text, key);
  return key;
}

using Signs = std::array<std::uint8_t, RecordSet::kBits>;  // 0 or 1 each

// A bit for each sign. The product gathers the lowest bits of eight bytes, the first one lowest, in its
// highest byte.
std::uint64_t packed(const Signs& signs) {
  static_assert(std::endian::native == std::endian::little);
  std::uint64_t bits = 0;
  for (std::size_t at = 0; at < signs.size(); at += 8) {
    std::uint64_t eight = 0;
    std::memcpy(&eight, &signs[at], sizeof eight);
    bits |= (eight * 0x0102040810204080u >> 56) << at;
  }
  return bits;
}

}  // namespace

void CellText::show(std::uint32_t record) {
  if (record_ == record) return;
  record_ = record;
  isFolded_ = false;
  if (!list_ && column_->type() == ColumnType::Text) {
    text_ = column_->texts()[column_->codes()[record]];
  } else {
    made_ = shownText(column_->value(record), list_);
    text_ = made_;
  }
}

std::size_t RecordSet::count() const {
  return std::accumulate(words_.begin(), words_.end(), std::size_t{0},
                         [](std::size_t sum, std::uint64_t word) {
                           return sum + static_cast<std::size_t>(std::popcount(word));
                         });
}

std::string_view CellText::folded() {
  if (!isFolded_) {
    folded_.clear();
    appendFoldedText(text_, folded_);
    isFolded_ = true;
  }
  return folded_;
}

Comparison::Comparison(const FormatCondition& condition, const ColumnData& column, const ValueList* list)
    : column_(&column) {
  if (condition.op >= kContains) {
    lookForText(condition, list);
  } else if (list || column.type() == ColumnType::Text) {
    compareTexts(condition, list);
  } else {
    compareNumbers(condition);
  }
}

void Comparison::compareNumbers(const FormatCondition& condition) {
  const auto range = [&](auto endsOf) { return inside(rangeOf(condition, endsOf, -kInfinity, kInfinity)); };
  constexpr auto kLeast = std::numeric_limits<std::int64_t>::min();
  constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
  switch (column_->type()) {
    case ColumnType::Unknown:
    case ColumnType::Text: return;
    case ColumnType::Whole:
      if (column_->isWide()) take(Kind::Wide, wide_, rangeOf(condition, wideEnds, kLeast, kMost));
      if (kind_ == Kind::Nothing) take(Kind::Whole, number_, range(numberEnds));
      return;
    case ColumnType::Number: return take(Kind::Number, number_, range(numberEnds));
    case ColumnType::Date: return take(Kind::Date, number_, range(dateEnds));
    case ColumnType::Boolean: return take(Kind::Boolean, number_, range(flagEnds));
  }
}

template <class T>
void Comparison::take(Kind kind, Range<T>& own, std::optional<Range<T>> range) {
  if (!range) return;
  own = *std::move(range);
  kind_ = kind;
}

void Comparison::compareTexts(const FormatCondition& condition, const ValueList* list) {
  const auto textEnds = [&](const Value& operand) -> std::optional<Ends<std::string>> {
    if (isAbsent(operand)) return {};
    const std::string key = folded(shownText(operand, list));
    return Ends<std::string>{key, key};
  };
  take(Kind::Text, text_, rangeOf(condition, textEnds, std::string(), std::string(kBehindAllTexts)));
  if (kind_ == Kind::Nothing) return;
  const auto ofText = [&](auto endsOf) {
    return [=](const Value& operand) { return endsOf(Value(shownText(operand, list))); };
  };
  numbersInTexts_ = rangeOf(condition, ofText(numberEnds), -kInfinity, kInfinity);
  datesInTexts_ = rangeOf(condition, ofText(dateEnds), -kInfinity, kInfinity);
}

void Comparison::lookForText(const FormatCondition& condition, const ValueList* list) {
  if (isAbsent(condition.value1)) return;
  std::string part = shownText(condition.value1, list);
  if (!list && column_->type() == ColumnType::Number) part = plainNumber(part).value_or(part);
  part_ = TextPart(folded(part));
  without_ = condition.op == kDoesNotContain;
  kind_ = Kind::Contains;
}

bool Comparison::textMatches(CellText& cell) const {
  if (kind_ == Kind::Contains) {
    const std::optional<bool> known = part_.isIn(cell.text());
    return (known ? *known : part_.isInFolded(cell.folded())) != without_;
  }
  if (numbersInTexts_) {
    if (const auto number = numberInText(cell.text())) return numbersInTexts_->holds(*number);
  }
  if (datesInTexts_) {
    if (const auto moment = momentInText(cell.text())) return datesInTexts_->holds(*moment);
  }
  return text_.holds(cell.folded());
}

// Calls use(values, test): the column's values, and what says whether one of them matches. What a test looks
// at is its own, so that a loop over all values need not fetch it anew behind each result.
template <class Use>
auto Comparison::withTest(Use use) const {
  const auto test = [&](const auto& values, auto numberOf) {
    if (number_.outside) {
      return use(values, [range = number_, numberOf](auto value) {
        const double number = numberOf(value);
        return !std::isnan(number) && range.holds(number);
      });
    }
    return use(values, [low = number_.low, high = number_.high, numberOf](auto value) {
      const double number = numberOf(value);
      return static_cast<bool>((low <= number) & (number <= high));  // no jump that may be guessed wrong
    });
  };
  const auto asDouble = [](auto value) { return static_cast<double>(value); };
  switch (kind_) {
    case Kind::Wide: return use(column_->wide(), [range = wide_](auto value) { return range.holds(value); });
    case Kind::Number: return test(column_->numbers(), asDouble);
    case Kind::Date: return test(column_->numbers(), momentOf);
    case Kind::Boolean: return test(column_->flags(), asDouble);
    case Kind::Nothing:
    case Kind::Text:
    case Kind::Contains:
    case Kind::Whole: break;
  }
  return column_->isWide() ? test(column_->wide(), asDouble) : test(column_->narrow(), asDouble);
}

bool Comparison::isText() const { return kind_ == Kind::Text || kind_ == Kind::Contains; }

bool Comparison::matches(std::uint32_t record, CellText& cell) const {
  if (kind_ == Kind::Nothing || column_->isNull(record)) return false;
  if (!isText()) return withTest([=](const auto& values, auto test) { return test(values[record]); });
  if (column_->type() == ColumnType::Number && std::isnan(column_->numbers()[record])) return false;
  cell.show(record);
  return textMatches(cell);
}

RecordSet Comparison::matchingRecords(CellText& cell) const {
  if (!column_) return RecordSet(0);
  const std::size_t count = column_->size();
  RecordSet matching(count);
  if (kind_ == Kind::Nothing) return matching;
  if (isText()) {
    findTexts(cell, matching);
    return matching;
  }
  withTest([&](const auto& values, auto test) {
    auto value = values.begin();
    for (std::uint64_t& word : matching.words()) {
      Signs signs{};
      const auto size = std::min(signs.size(), static_cast<std::size_t>(values.end() - value));
      for (std::size_t i = 0; i < size; ++i) signs[i] = test(*value++) ? 1 : 0;
      word = packed(signs);
    }
  });
  if (!column_->hasNulls()) return matching;
  for (std::uint32_t record = 0; record < count; ++record) {
    if (column_->isNull(record)) matching.remove(record);
  }
  return matching;
}

// A text that many records have is looked at once.
void Comparison::findTexts(CellText& cell, RecordSet& matching) const {
  const auto& codes = column_->codes();
  enum : std::uint8_t { kUnknown, kNo, kYes };
  std::vector<std::uint8_t> verdicts(column_->texts().size());
  for (std::uint32_t record = 0; record < column_->size(); ++record) {
    if (codes.empty()) {
      matching.add(record, matches(record, cell));
    } else if (codes[record] != kNullText) {
      std::uint8_t& verdict = verdicts[codes[record]];
      if (verdict == kUnknown) verdict = matches(record, cell) ? kYes : kNo;
      matching.add(record, verdict == kYes);
    }
  }
}

}  // namespace vmgv

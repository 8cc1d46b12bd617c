// A format condition's comparison made ready for its column, once: a record then costs a look at its value.
//
// How values compare with the operands:
//   numbers     by amount; an operand may be typed in either decimal notation
//   dates       to the second; an operand without a time of day stands for the whole day
//   True, False as 1 and 0; a number other than 0 is True
//   texts       by the order of the language, without case and accents (capitals are written without these);
//               where both sides are numbers, or both are dates, as such
//   columns with a value list   as the texts that they show; an operand that the list knows, as its text
//   "contains"  looks at what is shown, for texts without case and accents
// An interval includes its ends, which may come in either order. Empty is the empty text. Null and NaN never
// match, whatever the operator; nor does a condition whose operands mean nothing for its column.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/grid/grid_layout.h"
#include "adapters/grid/text_part.h"

namespace vmgv {

// The text that a cell shows, which the conditions on its column share.
class CellText {
 public:
  CellText(const ColumnData& column, const ValueList* list) : column_(&column), list_(list) {}

  void show(std::uint32_t record);  // no Null
  std::string_view text() const noexcept { return text_; }
  std::string_view folded();  // as appendFoldedText() makes it

 private:
  const ColumnData* column_;
  const ValueList* list_;
  std::optional<std::uint32_t> record_;
  std::string made_, folded_;
  std::string_view text_;
  bool isFolded_ = false;
};

// A closed interval, whose values match or, where `outside`, all others.
template <class T>
struct Range {
  T low{}, high{};
  bool outside = false;

  template <class U>
  bool holds(const U& value) const {
    return (low <= value && value <= high) != outside;
  }
};

// Some of the records, a bit for each: fresh memory costs more than comparing numbers.
class RecordSet {
 public:
  static constexpr std::size_t kBits = 64;  // of a word

  explicit RecordSet(std::size_t records) : words_((records + kBits - 1) / kBits) {}

  bool has(std::uint32_t record) const { return (words_[record / kBits] >> record % kBits & 1) != 0; }
  void add(std::uint32_t record, bool really) {  // without a jump that may be guessed wrong
    words_[record / kBits] |= std::uint64_t{really} << record % kBits;
  }
  void remove(std::uint32_t record) { words_[record / kBits] &= ~(std::uint64_t{1} << record % kBits); }
  std::size_t count() const;
  std::vector<std::uint64_t>& words() noexcept { return words_; }

 private:
  std::vector<std::uint64_t> words_;
};

class Comparison {
 public:
  Comparison() = default;  // matches nothing
  // Column and list outlive it.
  Comparison(const FormatCondition& condition, const ColumnData& column, const ValueList* list);

  // `cell` is one of the same column.
  bool matches(std::uint32_t record, CellText& cell) const;
  // A look at all records.
  RecordSet matchingRecords(CellText& cell) const;

 private:
  enum class Kind : std::uint8_t { Nothing, Wide, Whole, Number, Date, Boolean, Text, Contains };

  template <class T>
  void take(Kind kind, Range<T>& own, std::optional<Range<T>> range);
  void compareNumbers(const FormatCondition& condition);
  void compareTexts(const FormatCondition& condition, const ValueList* list);
  void lookForText(const FormatCondition& condition, const ValueList* list);
  bool isText() const;
  bool textMatches(CellText& cell) const;
  template <class Use>
  auto withTest(Use use) const;
  void findTexts(CellText& cell, RecordSet& matching) const;

  const ColumnData* column_ = nullptr;
  Kind kind_ = Kind::Nothing;
  Range<std::int64_t> wide_;
  Range<double> number_;     // of dates, moments
  Range<std::string> text_;  // folded
  std::optional<Range<double>> numbersInTexts_, datesInTexts_;
  TextPart part_;         // that a text contains
  bool without_ = false;  // or does not contain
};

}  // namespace vmgv

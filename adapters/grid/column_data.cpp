#include "adapters/grid/column_data.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "adapters/grid/collation.h"

namespace vmgv {
namespace {

constexpr std::int64_t kExactInDouble = std::int64_t{1} << 53;

bool fitsLong(std::int64_t number) {
  return number >= std::numeric_limits<std::int32_t>::min() &&
         number <= std::numeric_limits<std::int32_t>::max();
}

}  // namespace

bool ColumnData::isNull(std::uint32_t record) const noexcept {
  if (type_ == ColumnType::Text) return codes_[record] == kNullText;
  return type_ == ColumnType::Unknown || (!nulls_.empty() && nulls_[record]);
}

Value ColumnData::value(std::uint32_t record) const {
  if (isNull(record)) return Null{};
  switch (type_) {
    case ColumnType::Unknown: break;
    case ColumnType::Text: return texts_[codes_[record]];
    case ColumnType::Whole:
      if (!isWide_) return narrow_[record];
      if (fitsLong(wide_[record])) return static_cast<std::int32_t>(wide_[record]);
      return Decimal::fromInteger(wide_[record]);
    case ColumnType::Number: return numbers_[record];
    case ColumnType::Date: return Date{numbers_[record]};
    case ColumnType::Boolean: return flags_[record] != 0;
  }
  return Null{};
}

bool ColumnData::become(ColumnType type) {
  if (type_ == ColumnType::Unknown) {
    type_ = type;
    const std::size_t nulls = size_;
    size_ = nullCount_ = 0;
    while (size_ < nulls) appendNull();
    return true;
  }
  std::vector<double> numbers;
  numbers.reserve(size_);
  for (std::size_t i = 0; i < size_; ++i) {
    const std::int64_t number = isWide_ ? wide_[i] : narrow_[i];
    if (std::abs(number) > kExactInDouble) return false;
    numbers.push_back(static_cast<double>(number));
  }
  numbers_ = std::move(numbers);
  narrow_ = {};
  wide_ = {};
  type_ = type;
  return true;
}

void ColumnData::appendCell(bool null) {
  if (null && nulls_.empty()) nulls_.assign(size_, false);
  ++size_;
  if (null) ++nullCount_;
  if (!nulls_.empty() || null) nulls_.push_back(null);
}

void ColumnData::appendNull() {
  switch (type_) {
    case ColumnType::Unknown:
      ++size_;
      ++nullCount_;
      return;
    case ColumnType::Text:
      codes_.push_back(kNullText);
      ++size_;
      ++nullCount_;
      return;
    case ColumnType::Whole: isWide_ ? wide_.push_back(0) : narrow_.push_back(0); break;
    case ColumnType::Number:
    case ColumnType::Date: numbers_.push_back(0); break;
    case ColumnType::Boolean: flags_.push_back(0); break;
  }
  appendCell(true);
}

void ColumnData::append(std::string_view text) {
  codes_.push_back(texts_.add(text));
  ++size_;
}

void ColumnData::append(std::int64_t number) {
  if (!isWide_ && !fitsLong(number)) {
    wide_.assign(narrow_.begin(), narrow_.end());
    narrow_ = {};
    isWide_ = true;
  }
  isWide_ ? wide_.push_back(number) : narrow_.push_back(static_cast<std::int32_t>(number));
  appendCell(false);
}

void ColumnData::append(double number) {
  numbers_.push_back(number);
  appendCell(false);
}

void ColumnData::append(bool flag) {
  flags_.push_back(flag ? 1 : 0);
  appendCell(false);
}

const std::vector<std::uint32_t>& ColumnData::ranks() const {
  if (ranks_.size() != texts_.size()) ranks_ = textRanks(texts_);
  return ranks_;
}

std::pair<std::uint32_t, std::uint32_t> ColumnData::extremes() const {
  const auto among = [](const auto& numbers) {
    const auto [least, most] = std::minmax_element(numbers.begin(), numbers.end());
    return std::pair(static_cast<std::uint32_t>(least - numbers.begin()),
                     static_cast<std::uint32_t>(most - numbers.begin()));
  };
  if (type_ == ColumnType::Number) return among(numbers_);
  return isWide_ ? among(wide_) : among(narrow_);
}

void ColumnData::finish() {
  texts_.finish();
  codes_.shrink_to_fit();
  narrow_.shrink_to_fit();
  wide_.shrink_to_fit();
  numbers_.shrink_to_fit();
  flags_.shrink_to_fit();
  nulls_.shrink_to_fit();
}

}  // namespace vmgv

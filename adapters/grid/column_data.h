// The values of one column, all of one type, stored as compactly as that type allows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "adapters/grid/text_pool.h"
#include "support/automation/value.h"

namespace vmgv {

enum class ColumnType : std::uint8_t {
  Unknown,  // nothing but Null so far
  Text,
  Whole,  // up to 64 bits; kept in 32 as long as they do
  Number,
  Date,
  Boolean
};

class ColumnData {
 public:
  explicit ColumnData(ColumnType type = ColumnType::Unknown) : type_(type) {}

  ColumnType type() const noexcept { return type_; }
  std::size_t size() const noexcept { return size_; }

  bool isNull(std::uint32_t record) const noexcept;
  // Null, String, Long (Decimal beyond 32 bits), Double, Date or Boolean.
  Value value(std::uint32_t record) const;
  // Tells that the value will be asked for soon.
  [[gnu::always_inline]] void prefetch(std::uint32_t record) const noexcept {
    if (type_ == ColumnType::Text && codes_[record] != kNullText) texts_.prefetch(codes_[record]);
  }

  // Unknown becomes a type, all its values so far being Null; Whole becomes Number.
  // False, and nothing done, where a whole number has no equal among the doubles.
  bool become(ColumnType type);
  void appendNull();
  void append(std::string_view text);
  void append(std::int64_t number);
  void append(double number);  // of a Number, or days of a Date
  void append(bool flag);
  // Gives back what growing took too much.
  void finish();

  // The stored form, for sorting. Only that of the column's type is filled.
  const TextPool& texts() const noexcept { return texts_; }
  const std::vector<std::uint32_t>& codes() const noexcept { return codes_; }  // TextPool codes; kNullText
  const std::vector<std::uint32_t>& ranks() const;  // of the texts, by code; made when first asked for
  const std::vector<std::int32_t>& narrow() const noexcept { return narrow_; }
  const std::vector<std::int64_t>& wide() const noexcept { return wide_; }  // instead of narrow()
  const std::vector<double>& numbers() const noexcept { return numbers_; }
  const std::vector<std::uint8_t>& flags() const noexcept { return flags_; }
  bool isWide() const noexcept { return isWide_; }
  // The records of the least and of the largest number; of Whole and Number alone, and not without records.
  std::pair<std::uint32_t, std::uint32_t> extremes() const;
  bool hasNulls() const noexcept { return nullCount_ > 0; }

 private:
  void appendCell(bool null);

  ColumnType type_;
  bool isWide_ = false;
  std::size_t size_ = 0;
  std::size_t nullCount_ = 0;
  std::vector<bool> nulls_;  // empty as long as there are none, and for Text
  TextPool texts_;
  std::vector<std::uint32_t> codes_;
  mutable std::vector<std::uint32_t> ranks_;
  std::vector<std::int32_t> narrow_;
  std::vector<std::int64_t> wide_;
  std::vector<double> numbers_;
  std::vector<std::uint8_t> flags_;
};

}  // namespace vmgv

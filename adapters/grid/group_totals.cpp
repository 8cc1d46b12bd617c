#include "adapters/grid/group_totals.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vmgv {
namespace {

template <class Sum>
using Levels = std::vector<std::vector<Sum>>;

// Records are far from each other in memory: each is asked for some steps before its turn.
constexpr std::size_t kAhead = 24;

// The innermost groups add up their records, the others their groups. `values` are those that add() reads.
template <class Sum, class T, class Add>
Levels<Sum> summed(const DisplayRows& rows, const std::vector<T>& values, Add add) {
  const auto& records = rows.records();
  Levels<Sum> sums(rows.levels());
  for (std::size_t level = rows.levels(); level-- > 0;) {
    const bool innermost = level + 1 == rows.levels();
    const auto& parts = innermost ? rows.starts(level) : rows.children(level);
    sums[level].resize(rows.groups(level));
    for (std::size_t group = 0; group < sums[level].size(); ++group) {
      Sum& sum = sums[level][group];
      for (std::uint32_t part = parts[group]; part < parts[group + 1]; ++part) {
        if (innermost) {
          __builtin_prefetch(&values[records[std::min(part + kAhead, records.size() - 1)]]);
          add(sum, records[part]);
        } else {
          sum += sums[level + 1][part];
        }
      }
    }
  }
  return sums;
}

}  // namespace

void WholeSum::add(std::int64_t number) noexcept {
  const auto added = static_cast<std::uint64_t>(number);
  low_ += added;
  high_ += (low_ < added ? 1 : 0) - (number < 0 ? 1 : 0);
}

WholeSum& WholeSum::operator+=(const WholeSum& other) noexcept {
  low_ += other.low_;
  high_ += other.high_ + (low_ < other.low_ ? 1 : 0);
  return *this;
}

Value WholeSum::value() const {
  const bool negative = high_ < 0;
  const std::uint64_t low = negative ? 0 - low_ : low_;
  const std::int64_t high = negative ? (low_ == 0 ? -high_ : -high_ - 1) : high_;
  if (high == 0 && low <= std::uint64_t{std::numeric_limits<std::int32_t>::max()}) {
    const auto amount = static_cast<std::int32_t>(low);
    return negative ? -amount : amount;
  }
  return Decimal{low, static_cast<std::uint32_t>(high), 0, negative};
}

// What rounding takes from each sum is added up beside it (Knuth's exact sum of two numbers: no branch).
void RealSum::add(double number) noexcept {
  const double sum = sum_ + number, added = sum - sum_;
  lost_ += (sum_ - (sum - added)) + (number - added);
  sum_ = sum;
}

RealSum& RealSum::operator+=(const RealSum& other) noexcept {
  add(other.sum_);
  lost_ += other.lost_;
  return *this;
}

double RealSum::value() const noexcept { return std::isfinite(sum_) ? sum_ + lost_ : sum_; }

struct GroupTotals::Column {
  Levels<WholeSum> wholes;
  Levels<RealSum> reals;
  Levels<std::int32_t> counts;
};

GroupTotals::GroupTotals() = default;
GroupTotals::~GroupTotals() = default;

void GroupTotals::clear() { columns_.clear(); }

Value GroupTotals::sum(const DisplayRows& rows, const ColumnData& column, std::size_t level,
                       std::uint32_t group) {
  auto& totals = columns_[&column];
  if (!totals) totals = std::make_unique<Column>();
  if (column.type() == ColumnType::Whole) {
    auto& wholes = totals->wholes;
    if (wholes.empty()) {  // Null is stored as zero
      const auto sumOf = [&](const auto& values) {
        return summed<WholeSum>(rows, values,
                                [&](WholeSum& sum, std::uint32_t record) { sum.add(values[record]); });
      };
      wholes = column.isWide() ? sumOf(column.wide()) : sumOf(column.narrow());
    }
    return wholes[level][group].value();
  }
  auto& reals = totals->reals;
  if (reals.empty()) {
    const auto& numbers = column.numbers();
    reals =
        summed<RealSum>(rows, numbers, [&](RealSum& sum, std::uint32_t record) { sum.add(numbers[record]); });
  }
  return reals[level][group].value();
}

Value GroupTotals::count(const DisplayRows& rows, const ColumnData& column, std::size_t level,
                         std::uint32_t group) {
  if (!column.hasNulls()) {
    const auto& starts = rows.starts(level);
    return static_cast<std::int32_t>(starts[group + 1] - starts[group]);
  }
  auto& totals = columns_[&column];
  if (!totals) totals = std::make_unique<Column>();
  auto& counts = totals->counts;
  if (counts.empty()) {
    const auto count = [&](const auto& values, auto isThere) {
      return summed<std::int32_t>(
          rows, values, [&](std::int32_t& sum, std::uint32_t record) { sum += isThere(record) ? 1 : 0; });
    };
    counts =
        column.type() == ColumnType::Text
            ? count(column.codes(), [&](std::uint32_t record) { return column.codes()[record] != kNullText; })
            : count(rows.records(), [&](std::uint32_t record) { return !column.isNull(record); });
  }
  return counts[level][group];
}

}  // namespace vmgv

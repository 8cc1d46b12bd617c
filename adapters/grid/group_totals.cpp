#include "adapters/grid/group_totals.h"

#include <cmath>
#include <limits>

namespace vmgv {
namespace {

template <class Sum>
using Levels = std::vector<std::vector<Sum>>;

// The innermost groups add up their records, the others their groups.
template <class Sum, class Add>
Levels<Sum> summed(const DisplayRows& rows, Add add) {
  Levels<Sum> sums(rows.levels());
  for (std::size_t level = rows.levels(); level-- > 0;) {
    const bool innermost = level + 1 == rows.levels();
    const auto& parts = innermost ? rows.starts(level) : rows.children(level);
    sums[level].resize(rows.groups(level));
    for (std::size_t group = 0; group < sums[level].size(); ++group) {
      Sum& sum = sums[level][group];
      for (std::uint32_t part = parts[group]; part < parts[group + 1]; ++part) {
        if (innermost) {
          add(sum, rows.records()[part]);
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

// Neumaier's compensated summation.
void RealSum::add(double number) noexcept {
  const double sum = sum_ + number;
  lost_ += std::fabs(sum_) >= std::fabs(number) ? (sum_ - sum) + number : (number - sum) + sum_;
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
      wholes = summed<WholeSum>(rows, [&](WholeSum& sum, std::uint32_t record) {
        sum.add(column.isWide() ? column.wide()[record] : column.narrow()[record]);
      });
    }
    return wholes[level][group].value();
  }
  auto& reals = totals->reals;
  if (reals.empty()) {
    reals =
        summed<RealSum>(rows, [&](RealSum& sum, std::uint32_t record) { sum.add(column.numbers()[record]); });
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
    counts = summed<std::int32_t>(
        rows, [&](std::int32_t& count, std::uint32_t record) { count += column.isNull(record) ? 0 : 1; });
  }
  return counts[level][group];
}

}  // namespace vmgv

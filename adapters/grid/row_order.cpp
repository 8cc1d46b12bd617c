#include "adapters/grid/row_order.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <numeric>
#include <optional>

namespace vmgv {
namespace {

// A column's values as whole numbers in the order wanted.
struct Numerals {
  std::vector<std::uint64_t> values;
  unsigned bits = 0;  // that the largest one needs
};

// Adding and taking away this number rounds to a whole one, up to 2^51 in size.
constexpr double kRounder = 6755399441055744.0;
constexpr double kLargestRounded = 2251799813685248.0;

double rounded(double number) { return (number + kRounder) - kRounder; }

// The steps of 1/scale that make up a number, as long as they do so exactly.
bool isMultiple(double number, double scale) { return rounded(number * scale) / scale == number; }

// A date's steps are made up as dates are: whole days, and seconds of the last day.
bool isMoment(double days) {
  const double seconds = rounded(days * 86400);
  const double day = std::floor(seconds / 86400);
  return days >= 0 && day + (seconds - day * 86400) / 86400 == days;
}

// The scale at which all numbers are whole: small ones need fewer bits so than in their own format.
std::optional<double> commonScale(const ColumnData& column) {
  static constexpr std::array<double, 6> kScales{1, 10, 100, 1000, 10000, 86400};
  const bool dates = column.type() == ColumnType::Date;
  std::size_t scale = 0;
  double largest = 0;
  for (const double number : column.numbers()) {
    largest = std::max(largest, std::fabs(number));
    if (isMultiple(number, kScales[scale])) continue;
    if (dates) {
      scale = kScales.size() - 1;
      if (!isMoment(number)) return {};
    } else {
      while (!isMultiple(number, kScales[scale])) {
        if (++scale == kScales.size() - 1) return {};
      }
    }
  }
  if (!(largest * kScales[scale] < kLargestRounded)) return {};
  return kScales[scale];
}

// An order-preserving image of a double's bits; one for both zeros, one for all NaNs, above the others.
std::uint64_t imageOf(double number) {
  if (std::isnan(number)) return std::numeric_limits<std::uint64_t>::max();
  const auto bits = std::bit_cast<std::uint64_t>(number + 0.0);
  constexpr std::uint64_t kSign = std::uint64_t{1} << 63;
  return (bits & kSign) != 0 ? ~bits : bits | kSign;
}

std::uint64_t imageOf(std::int64_t number) {
  return static_cast<std::uint64_t>(number) ^ (std::uint64_t{1} << 63);
}

// Puts the numerals of `image(record)` behind `all`, and those of Null before them where one word has no
// room.
template <class Image>
void addNumerals(const ColumnData& column, bool descending, std::size_t rows, Image image,
                 std::vector<Numerals>& all) {
  constexpr std::uint64_t kMost = std::numeric_limits<std::uint64_t>::max();
  std::vector<std::uint64_t> values(rows);
  const bool nulls = column.hasNulls();
  std::uint64_t least = kMost, most = 0;
  for (std::uint32_t record = 0; record < rows; ++record) {
    if (nulls && column.isNull(record)) continue;
    values[record] = image(record);
    least = std::min(least, values[record]);
    most = std::max(most, values[record]);
  }
  if (least > most) return;  // nothing but Null
  const bool apart = nulls && most - least == kMost;
  const std::uint64_t first = nulls && !apart ? 1 : 0;  // the numeral of the least value
  const std::uint64_t top = most - least + first;
  Numerals presence;
  if (apart) presence = {std::vector<std::uint64_t>(rows), 1};
  for (std::uint32_t record = 0; record < rows; ++record) {
    const bool null = nulls && column.isNull(record);
    const std::uint64_t numeral = null ? 0 : values[record] - least + first;
    values[record] = descending ? top - numeral : numeral;
    if (apart) presence.values[record] = null == descending ? 1 : 0;
  }
  if (apart) all.push_back(std::move(presence));
  all.push_back({std::move(values), static_cast<unsigned>(std::bit_width(top))});
}

void addNumerals(const OrderKey& key, std::size_t rows, std::vector<Numerals>& all) {
  const ColumnData& column = *key.column;
  const auto add = [&](auto image) { addNumerals(column, key.descending, rows, image, all); };
  switch (column.type()) {
    case ColumnType::Unknown: return;
    case ColumnType::Text: {
      const auto& ranks = column.ranks();
      const auto& codes = column.codes();
      return add([&](std::uint32_t record) { return std::uint64_t{ranks[codes[record]]}; });
    }
    case ColumnType::Whole:
      if (column.isWide()) return add([&](std::uint32_t record) { return imageOf(column.wide()[record]); });
      return add([&](std::uint32_t record) { return imageOf(std::int64_t{column.narrow()[record]}); });
    case ColumnType::Number:
    case ColumnType::Date: {
      const auto& numbers = column.numbers();
      if (const auto scale = commonScale(column)) {
        return add([&numbers, by = *scale](std::uint32_t record) {
          return imageOf(static_cast<std::int64_t>(rounded(numbers[record] * by)));
        });
      }
      return add([&](std::uint32_t record) { return imageOf(numbers[record]); });
    }
    case ColumnType::Boolean:
      return add([&](std::uint32_t record) { return std::uint64_t{column.flags()[record]}; });
  }
}

// Sorts by the bits from `low` on; bits below it keep no order of their own.
void radixSort(std::vector<std::uint64_t>& words, unsigned low, unsigned bits) {
  constexpr unsigned kDigit = 11;
  constexpr std::size_t kBuckets = std::size_t{1} << kDigit;
  std::vector<std::uint64_t> sorted(words.size());
  for (unsigned done = 0; done < bits; done += kDigit) {
    const unsigned shift = low + done;
    std::array<std::uint32_t, kBuckets> starts{};
    for (const std::uint64_t word : words) ++starts[(word >> shift) % kBuckets];
    std::exclusive_scan(starts.begin(), starts.end(), starts.begin(), std::uint32_t{0});
    for (const std::uint64_t word : words) sorted[starts[(word >> shift) % kBuckets]++] = word;
    words.swap(sorted);
  }
}

// A part of a numeral that goes into one word.
struct Part {
  const Numerals* numerals;
  unsigned shift, bits;
};

// The parts of each word, most significant part first; the least significant word first, as it is sorted
// first.
std::vector<std::vector<Part>> packed(const std::vector<Numerals>& all, unsigned room) {
  std::vector<std::vector<Part>> words;
  unsigned left = 0;
  for (const Numerals& numerals : all) {
    for (unsigned rest = numerals.bits; rest > 0;) {
      if (left == 0) {
        words.emplace_back();
        left = room;
      }
      const unsigned bits = std::min(left, rest);
      rest -= bits;
      left -= bits;
      words.back().push_back({&numerals, rest, bits});
    }
  }
  std::reverse(words.begin(), words.end());
  return words;
}

// Finds out where neighbours in the order first differ. Most of their numerals lie in the word that was
// sorted last, which tells without a look at the records.
class Differences {
 public:
  Differences(const std::vector<Numerals>& all, const std::vector<std::vector<Part>>& words,
              unsigned recordBits)
      : all_(all), recordBits_(recordBits) {
    if (words.empty()) return;
    unsigned low = 0;
    for (const Part& part : words.back()) low += part.bits;
    for (const Part& part : words.back()) {
      low -= part.bits;
      inWord_.push_back({static_cast<std::size_t>(part.numerals - all.data()), low});
      if (part.shift == 0) whole_ = inWord_.back().numeral + 1;
    }
  }

  // The first numeral, of the first `count`, in which two sorted words' records differ; else `count`.
  std::size_t first(std::uint64_t before, std::uint64_t word, std::size_t count) const {
    if (const std::uint64_t difference = (before ^ word) >> recordBits_; difference != 0) {
      for (const auto& [numeral, low] : inWord_) {
        if (difference >> low != 0) return std::min(numeral, count);
      }
    }
    const std::uint64_t mask = (std::uint64_t{1} << recordBits_) - 1;
    std::size_t numeral = whole_;
    while (numeral < count && all_[numeral].values[before & mask] == all_[numeral].values[word & mask])
      ++numeral;
    return std::min(numeral, count);
  }

 private:
  struct InWord {
    std::size_t numeral;
    unsigned low;  // its lowest bit
  };

  const std::vector<Numerals>& all_;
  unsigned recordBits_;
  std::vector<InWord> inWord_;  // most significant first
  std::size_t whole_ = 0;       // so many numerals lie in the word as a whole
};

// `levels`: how many numerals the first key has, the first two and so on.
std::vector<std::vector<std::uint32_t>> groupStarts(const std::vector<std::uint64_t>& sorted,
                                                    const Differences& differences,
                                                    const std::vector<std::size_t>& levels) {
  std::vector<std::vector<std::uint32_t>> starts(levels.size());
  if (levels.empty()) return starts;
  for (std::size_t place = 0; place < sorted.size(); ++place) {
    std::size_t level = 0;
    if (place > 0) {
      const std::size_t numeral = differences.first(sorted[place - 1], sorted[place], levels.back());
      while (level < levels.size() && levels[level] <= numeral) ++level;
    }
    for (; level < levels.size(); ++level) starts[level].push_back(static_cast<std::uint32_t>(place));
  }
  for (auto& places : starts) places.push_back(static_cast<std::uint32_t>(sorted.size()));
  return starts;
}

}  // namespace

SortedRows sortedRows(std::span<const OrderKey> keys, std::size_t grouping, std::size_t rows) {
  std::vector<Numerals> all;
  std::vector<std::size_t> levels;
  for (const OrderKey& key : keys) {
    addNumerals(key, rows, all);
    if (levels.size() < grouping) levels.push_back(all.size());
  }

  // A word holds its record's number in the low bits, so that the record travels with its key.
  const auto recordBits = static_cast<unsigned>(std::bit_width(rows));
  const std::uint64_t recordMask = (std::uint64_t{1} << recordBits) - 1;
  std::vector<std::uint64_t> words(rows);
  std::iota(words.begin(), words.end(), std::uint64_t{0});
  const std::vector<std::vector<Part>> packing = packed(all, 64 - recordBits);
  for (const std::vector<Part>& parts : packing) {
    unsigned bits = 0;
    for (const Part& part : parts) bits += part.bits;
    for (std::uint64_t& word : words) {
      const std::uint64_t record = word & recordMask;
      std::uint64_t key = 0;
      for (const Part& part : parts) {
        const std::uint64_t numeral = part.numerals->values[record] >> part.shift;
        key = (key << part.bits) | (numeral & ((std::uint64_t{1} << part.bits) - 1));
      }
      word = (key << recordBits) | record;
    }
    radixSort(words, recordBits, bits);
  }
  SortedRows sorted;
  sorted.records.resize(rows);
  std::transform(words.begin(), words.end(), sorted.records.begin(),
                 [&](std::uint64_t word) { return static_cast<std::uint32_t>(word & recordMask); });
  sorted.starts = groupStarts(words, Differences(all, packing, recordBits), levels);
  return sorted;
}

}  // namespace vmgv

#include "hosts/player/near.h"

#include <algorithm>
#include <utility>

#include "support/automation/class_table.h"

namespace vmgv {
namespace {

constexpr std::size_t kMostNames = 3;
constexpr std::size_t kLongestName = 40;

// Letters to change, insert or leave out.
std::size_t distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  for (std::size_t j = 0; j < row.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i);
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t changed = diagonal + (a[i - 1] == b[j - 1] ? 0 : 1);
      diagonal = row[j];
      row[j] = std::min({changed, row[j] + 1, row[j - 1] + 1});
    }
  }
  return row.back();
}

}  // namespace

std::string nearNames(std::string_view wanted, const std::vector<std::string>& names) {
  const std::string lower = lowerCase(wanted.substr(0, kLongestName));
  std::vector<std::pair<std::size_t, std::string>> near;
  for (const std::string& name : names) {
    const std::string candidate = lowerCase(name);
    const std::size_t steps = distance(lower, candidate);
    const bool sameBeginning = lower.size() > 1 && candidate.starts_with(lower);
    if (steps <= 1 + lower.size() / 4 || sameBeginning) near.emplace_back(steps, name);
  }
  std::stable_sort(near.begin(), near.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  if (near.size() > kMostNames) near.resize(kMostNames);
  std::string list;
  for (std::size_t i = 0; i < near.size(); ++i) {
    if (i > 0) list += i + 1 == near.size() ? " or " : ", ";
    list += near[i].second;
  }
  return list;
}

}  // namespace vmgv

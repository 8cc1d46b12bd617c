// Sorting: against a plain comparison on random rows, and the order of texts.
#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>

#include "adapters/grid/collation.h"
#include "adapters/grid/row_order.h"
#include "fixture.h"

namespace vmgv {
namespace {

std::string keyOf(std::string_view text) {
  std::string key;
  appendSortKey(text, key);
  return key;
}

TEST(TextOrder, PutsTextsInAReadersOrder) {
  // Each text comes before the next one.
  const std::vector<std::string> order{
      "",        " x",       "-",        "~",       "0",     "10",     "2",      "A B",
      "a10",     "a2",       "ab",       "æ",       "af",    "ano",    "año",    "anp",
      "Berlin",  "cote",     "Cote",     "coté",    "côte",  "côté",   "Coté x", "ett",
      "straße2", "strassen", "việt nam", "vietnam", "zebra", "Ωραίος", "ЯЯ",
  };
  std::vector<std::string> sorted = order;
  std::shuffle(sorted.begin(), sorted.end(), std::mt19937(1));
  std::sort(sorted.begin(), sorted.end(), [](const auto& a, const auto& b) { return keyOf(a) < keyOf(b); });
  const std::vector<std::string> greek{
      "άγιος", "Αθήνα", "άλφα", "Άνδρος",   "αϋπνία", "αύριο", "βόλος", "Γη",  "δ",    "εύκολο", "ζω",
      "ήλιος", "θέα",   "ϊ",    "Ιωάννινα", "κώς",    "κως α", "Λ",     "μυς", "μύση", "ξ",      "ο",
      "πως",   "πώς",   "σας",  "σασα",     "ΤΑΞΗ",   "υιός",  "φως",   "χ",   "ψ",    "Ώρα"};
  for (std::size_t i = 1; i < greek.size(); ++i) EXPECT_LT(keyOf(greek[i - 1]), keyOf(greek[i])) << greek[i];
  EXPECT_EQ(sorted, order);
}

TEST(TextOrder, IgnoresCaseAndAccentsUnlessNothingElseDiffers) {
  const struct {
    const char *less, *more, *folded;
  } cases[] = {
      {"αθηνα", "Αθήνα", "αθηνά"},    {"ιδιος", "ίδιος", "ΙΔΙΟΣ"}, {"προιον", "προϊόν", "ΠΡΟΪΟΝ"},
      {"resume", "résumé", "RESUME"}, {"ὀδος", "ὁδός", "οδος"},
  };
  for (const auto& c : cases) {
    EXPECT_LT(keyOf(c.less), keyOf(c.more));
    // One more letter outweighs every accent and capital.
    for (const char* text : {c.less, c.more, c.folded}) {
      EXPECT_LT(keyOf(c.more), keyOf(std::string(text) + "α")) << text;
    }
  }
  EXPECT_EQ(keyOf("é"), keyOf("e\u0301"));
  EXPECT_EQ(keyOf("ς"), keyOf("σ"));
}

TEST(TextOrder, RanksEqualTextsAlikeHoweverManyThereAre) {
  TextPool pool;
  std::vector<std::string> texts;
  std::mt19937 random(7);
  for (int i = 0; i < 150000; ++i) {
    texts.push_back("a rather long beginning that all texts share " + std::to_string(random() % 140000));
    pool.add(texts.back());
  }
  pool.finish();
  std::vector<std::uint32_t> codes(pool.size());
  const auto ranks = textRanks(pool);
  std::iota(codes.begin(), codes.end(), 0u);
  std::sort(codes.begin(), codes.end(), [&](auto a, auto b) { return ranks[a] < ranks[b]; });
  for (std::size_t i = 1; i < codes.size(); ++i) {
    const std::string_view a = pool[codes[i - 1]], b = pool[codes[i]];
    ASSERT_EQ(a == b, ranks[codes[i - 1]] == ranks[codes[i]]);
    ASSERT_LE(a, b);  // digits compare as text
  }
}

// What the sort must agree with: one comparison after the other.
int compare(const Value& a, const Value& b) {
  if (a.isNull() || b.isNull()) return int{b.isNull()} - int{a.isNull()};
  if (a.isText()) {
    const int order = keyOf(a.text()).compare(keyOf(b.text()));
    return order != 0 ? order : a.text().compare(b.text());
  }
  const double x = a.as<bool>() ? *a.as<bool>() : toDouble(a), y = b.as<bool>() ? *b.as<bool>() : toDouble(b);
  if (std::isnan(x) || std::isnan(y)) return int{std::isnan(x)} - int{std::isnan(y)};
  return x < y ? -1 : x > y ? 1 : 0;
}

Value randomValue(ColumnType type, int flavour, std::mt19937& random) {
  if (random() % 7 == 0 && flavour % 3 != 0) return Null{};
  const auto number = static_cast<std::int32_t>(random());
  switch (type) {
    case ColumnType::Unknown: break;
    case ColumnType::Text: {
      static const char* kWords[] = {"Άλφα", "αλφα", "άλφα", "beta", "Beta",
                                     "βήτα", "",     "Σας",  "σασ",  "gamma"};
      return std::string(kWords[random() % 10]) + (flavour > 1 ? std::to_string(random() % 50) : "");
    }
    case ColumnType::Whole: return flavour == 0 ? number % 9 : number;
    case ColumnType::Number: {
      if (flavour == 0) return static_cast<double>(number % 1000) / 100;
      if (flavour == 1)
        return std::ldexp(static_cast<double>(number), static_cast<int>(random() % 200) - 100);
      static const double kOdd[] = {0.0,    -0.0, std::nan(""), -std::nan(""), 1e300,
                                    -1e300, 0.1,  INFINITY,     -INFINITY};
      return kOdd[random() % 9];
    }
    case ColumnType::Date:
      if (flavour == 0) return Date{static_cast<double>(number % 500)};
      return Date{40000 + (number % 100) +
                  (flavour == 1 ? (number & 0xFFFF) / 86400.0 : 1.0 / (1 + (number & 7)))};
    case ColumnType::Boolean: return number % 2 == 0;
  }
  return Null{};
}

TEST(Order, AgreesWithAStableComparisonOnRandomRows) {
  constexpr ColumnType kTypes[] = {ColumnType::Text, ColumnType::Whole,   ColumnType::Number,
                                   ColumnType::Date, ColumnType::Boolean, ColumnType::Unknown};
  std::mt19937 random(42);
  for (int round = 0; round < 60; ++round) {
    std::vector<ColumnSpec> specs;
    std::vector<std::pair<ColumnType, int>> kinds;
    for (int i = 0; i < 1 + round % 4; ++i) {
      kinds.emplace_back(kTypes[random() % 6], static_cast<int>(random() % 3));
      specs.push_back({"c" + std::to_string(i), {}, kinds.back().first});
    }
    std::vector<std::vector<Value>> rows(round == 0 ? 0 : random() % 700);
    for (auto& row : rows) {
      for (const auto& [type, flavour] : kinds) row.push_back(randomValue(type, flavour, random));
    }
    const auto engine = engineOf(specs, rows);
    std::vector<int> orders;
    for (std::size_t i = 0; i < specs.size(); ++i) {
      orders.push_back(random() % 2 == 0 ? 1 : -1);
      engine->addSortKey({static_cast<std::int32_t>(i) + 1, static_cast<std::int16_t>(orders.back())});
    }
    std::vector<std::uint32_t> expected(rows.size());
    std::iota(expected.begin(), expected.end(), 0u);
    std::stable_sort(expected.begin(), expected.end(), [&](std::uint32_t a, std::uint32_t b) {
      for (std::size_t i = 0; i < specs.size(); ++i) {
        const int order = compare(rows[a][i], rows[b][i]) * orders[i];
        if (order != 0) return order < 0;
      }
      return false;
    });
    for (std::int32_t position = 1; position <= engine->rowCount(); ++position) {
      ASSERT_EQ(engine->displayRow(position).record, expected[static_cast<std::size_t>(position) - 1])
          << "round " << round << ", row " << position;
    }
  }
}

TEST(Order, SortsTheWholeRangeOf64BitsWithNulls) {
  ColumnData column(ColumnType::Whole);
  column.append(std::numeric_limits<std::int64_t>::max());
  column.appendNull();
  column.append(std::numeric_limits<std::int64_t>::min());
  column.append(std::int64_t{0});
  const OrderKey up{&column, false}, down{&column, true};
  EXPECT_EQ(sortedRecords({&up, 1}, 4), (std::vector<std::uint32_t>{1, 2, 3, 0}));
  EXPECT_EQ(sortedRecords({&down, 1}, 4), (std::vector<std::uint32_t>{0, 3, 2, 1}));
}

}  // namespace
}  // namespace vmgv

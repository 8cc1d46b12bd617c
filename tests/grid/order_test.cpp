// Sorting: against a plain comparison on random rows, and the order of texts.
#include <algorithm>
#include <cmath>
#include <cstdint>
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
  const Rows orders[] = {
      {
          "",        " x",       "-",        "~",       "0",     "10",     "2",      "A B",
          "a10",     "a2",       "ab",       "æ",       "af",    "ano",    "año",    "anp",
          "Berlin",  "cote",     "Cote",     "coté",    "côte",  "côté",   "Coté x", "ett",
          "straße2", "strassen", "việt nam", "vietnam", "zebra", "Ωραίος", "ЯЯ",
      },
      {"άγιος", "Αθήνα", "άλφα", "Άνδρος",   "αϋπνία", "αύριο", "βόλος", "Γη",  "δ",    "εύκολο", "ζω",
       "ήλιος", "θέα",   "ϊ",    "Ιωάννινα", "κώς",    "κως α", "Λ",     "μυς", "μύση", "ξ",      "ο",
       "πως",   "πώς",   "σας",  "σασα",     "ΤΑΞΗ",   "υιός",  "φως",   "χ",   "ψ",    "Ώρα"},
      // Case and accents count where nothing else differs.
      {"αθηνα", "Αθήνα", "αθηναα", "Αθήναα"},
      {"προιον", "προϊόν", "προιονα", "ΠΡΟΪΟΝΒ"},
      {"ὀδος", "ὁδός", "οδοςα"},
  };
  for (const Rows& order : orders) {
    for (std::size_t i = 1; i < order.size(); ++i)
      EXPECT_LT(keyOf(order[i - 1]), keyOf(order[i])) << order[i];
  }
  EXPECT_EQ(keyOf("é"), keyOf("e\u0301"));
  EXPECT_EQ(keyOf("ς"), keyOf("σ"));
}

TEST(TextOrder, RanksEqualTextsAlikeHoweverManyThereAre) {
  TextPool pool;
  std::mt19937 random(7);
  for (int i = 0; i < 150000; ++i) {
    pool.add("a rather long beginning that all texts share " + std::to_string(random() % 140000));
  }
  pool.finish();
  const auto ranks = textRanks(pool);
  std::vector<std::uint32_t> codes(pool.size());
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

Value randomValue(ColumnType type, bool many, bool nulls, std::mt19937& random) {
  static const char* const kWords[] = {"Άλφα", "αλφα", "άλφα", "beta", "Beta", "βήτα", "", "Σας", "σασ"};
  static const double kOdd[] = {0.0, -0.0, std::nan(""), -std::nan(""), 1e300, -1e300, INFINITY, -INFINITY};
  const auto number = static_cast<std::int32_t>(random());
  if (nulls && number % 7 == 0) return Null{};
  switch (type) {
    case ColumnType::Unknown: break;
    case ColumnType::Text: return kWords[random() % 9] + (many ? std::to_string(random() % 50) : "");
    case ColumnType::Whole: return many ? number : number % 9;
    case ColumnType::Number:
      return many ? std::ldexp(number, static_cast<int>(random() % 200) - 100) : kOdd[random() % 8];
    case ColumnType::Date: return Date{40000 + number % 100 + (many ? (random() & 0xFFFF) / 86400.0 : 0)};
    case ColumnType::Boolean: return number % 2 == 0;
  }
  return Null{};
}

TEST(Order, AgreesWithAStableComparisonOnRandomRows) {
  constexpr ColumnType kTypes[] = {ColumnType::Text, ColumnType::Whole,   ColumnType::Number,
                                   ColumnType::Date, ColumnType::Boolean, ColumnType::Unknown};
  std::mt19937 random(42);
  for (std::size_t round = 0; round < 60; ++round) {
    std::vector<ColumnSpec> specs;
    std::vector<std::vector<Value>> rows(round == 0 ? 0 : random() % 700);
    std::vector<SortKey> keys;
    for (std::int32_t column = 1; column <= 1 + static_cast<std::int32_t>(round % 4); ++column) {
      const ColumnType type = kTypes[random() % 6];
      const bool many = random() % 2 == 0, nulls = random() % 3 != 0;
      specs.push_back({"c" + std::to_string(column), {}, type});
      keys.push_back({column, static_cast<std::int16_t>(random() % 2 == 0 ? 1 : -1)});
      for (auto& row : rows) row.push_back(randomValue(type, many, nulls, random));
    }
    const auto engine = engineOf(specs, rows);
    for (const SortKey& key : keys) engine->addSortKey(key);
    std::vector<std::uint32_t> expected(rows.size());
    std::iota(expected.begin(), expected.end(), 0u);
    std::stable_sort(expected.begin(), expected.end(), [&](std::uint32_t a, std::uint32_t b) {
      for (std::size_t i = 0; i < keys.size(); ++i) {
        const int order = compare(rows[a][i], rows[b][i]) * keys[i].sortOrder;
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

TEST(Order, SortsTheWholeRangeOf64Bits) {
  ColumnData column(ColumnType::Whole);
  for (const std::int64_t number : {INT64_MAX, INT64_MIN, std::int64_t{0}}) column.append(number);
  const OrderKey key{&column, true};
  EXPECT_EQ(sortedRows({&key, 1}, 0, 3).records, (std::vector<std::uint32_t>{0, 2, 1}));
}

}  // namespace
}  // namespace vmgv

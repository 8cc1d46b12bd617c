// Which records format conditions match: every operator on every type of column.
#include <cmath>
#include <random>
#include <sstream>

#include "adapters/grid/collation.h"
#include "fixture.h"

namespace vmgv {
namespace {

constexpr double kDay = 45356;  // 2024-03-05
constexpr double kHour = 1.0 / 24;

// A sign for each cell: 1 where it matches. Both ways of asking must agree.
std::string matches(const GridEngine& engine) {
  std::string signs;
  const auto all = engine.matchingRecords(0);
  for (std::int32_t row = 1; row <= engine.rowCount(); ++row) {
    const bool alone = !engine.reasonsOf(engine.displayRow(row)).matching.empty();
    EXPECT_EQ(alone, all.has(engine.displayRow(row).record)) << row;
    signs += alone ? '1' : '.';
  }
  return signs;
}

FormatCondition conditionOf(int op, Value value1, Value value2 = {}) {
  FormatCondition condition;
  condition.name = "x";
  condition.op = static_cast<std::int16_t>(op);
  condition.value1 = std::move(value1);
  condition.value2 = std::move(value2);
  return condition;
}

TEST(Comparison, HoldsForEveryOperatorOnEveryType) {
  const Date day{kDay}, morning{kDay + 9 * kHour}, evening{kDay + 21 * kHour}, nextDay{kDay + 1};
  const std::vector<Value> numbers{-1.5, 0.0, 1234.5, 2000.0, std::nan(""), Null{}};
  const std::vector<Value> wholes{-7, 0, 12, 13, Null{}};
  const std::vector<Value> wide{*Decimal::fromText("9007199254740992"),
                                *Decimal::fromText("9007199254740993"), *Decimal::fromText("-1"), Null{}};
  const std::vector<Value> dates{Date{kDay - 1}, day, morning, evening, nextDay, Null{}};
  const std::vector<Value> flags{false, true, Null{}};
  const std::vector<Value> texts{"Αθήνα", "ΑΘΗΝΑ", "αθήναι", "Βόλος", "ΒΌΛΟΣ", "", "zebra", Null{}};
  const std::vector<Value> codes{"7", "007", "12,5", "1.000,50", "2024-03-05", "x12", Null{}};
  const struct {
    const char* what;
    std::vector<Value> cells;
    Value value1, value2;
    // = <> > < >= <= between, not between, contains, does not contain
    const char* expected;
  } cases[] = {
      {"numbers", numbers, "1.234,5", 2000,
       "..1... 11.1.. ...1.. 11.... ..11.. "
       "111... ..11.. 11.... ..1... 11.1.."},
      {"numbers, the other notation", numbers, "1,234.5", "0",
       "..1... 11.1.. ...1.. 11.... ..11.. "
       "111... .11... 1..1.. ..1... 11.1.."},
      {"numbers and no number", numbers, "", "abc",
       "...... ...... ...... ...... ...... "
       "...... ...... ...... 1111.. ......"},
      {"numbers and NaN", numbers, std::nan(""), 1,
       "...... ...... ...... ...... ...... "
       "...... ...... ...... ...... 1111.."},
      {"whole numbers", wholes, " 12 ", "13.0",
       "..1.. 11.1. ...1. 11... ..11. "
       "111.. ..11. 11... ..... 1111."},
      {"whole numbers between", wholes, -0.5, Currency{125000},
       "..... 1111. .111. 1.... .111. "
       "1.... .11.. 1..1. ..... 1111."},
      {"beyond 2^53", wide, "9007199254740993", -1,
       ".1.. 1.1. .... 1.1. .1.. "
       "111. 111. .... .1.. 1.1."},
      {"beyond 2^53, with a fraction", wide, 0.5, 1e30,
       ".... 111. 11.. ..1. 11.. "
       "..1. 11.. ..1. .... 111."},
      {"a whole day", dates, "2024-03-05", nextDay,
       ".111.. 1...1. ....1. 1..... .1111. "
       "1111.. .1111. 1..... ...... 11111."},
      {"a moment", dates, "5.3.2024 9:00", "03/05/2024 21:00:00",
       "..1... 11.11. ...11. 11.... ..111. "
       "111... ..11.. 11..1. ...... 11111."},
      {"days as they are shown", dates, "03/05/2024", "13/3/24",
       ".111.. 1...1. ....1. 1..... .1111. "
       "1111.. .1111. 1..... .111.. 1...1."},
      {"dates and no date", dates, "45356", "5/3",
       "...... ...... ...... ...... ...... "
       "...... ...... ...... ...... 11111."},
      {"True and False", flags, "TRUE", 0,
       ".1. 1.. ... 1.. .1. "
       "11. 11. ... .1. 1.."},
      {"texts", texts, "αθηνα", "βολοσ",
       "11...... ..11111. ..111... .....11. 11111... "
       "11...11. 11111... .....11. 111..... ...1111."},
      {"the empty text", texts, Value(), "ΒΟΛΟΣ",
       ".....1.. 11111.1. 11111.1. ........ 1111111. "
       ".....1.. 1111111. ........ 1111111. ........"},
      {"letters of other languages",
       {"Я", "a", Null{}},
       "β",
       "ω",
       "... 11. 1.. .1. 1.. "
       ".1. ... 11. ... 11."},
      {"Null", texts, Null{}, "x",
       "........ ........ ........ ........ ........ "
       "........ ........ ........ ........ ........"},
      {"numbers and dates as texts", codes, "12.5", "1000,5",
       "..1.... 11.111. ...111. 11..... ..1111. "
       "111.... ..11... 11..11. ....... 111111."},
      {"dates as texts", codes, "03/05/2024", "x",
       "....1.. 1111.1. 1.11.1. .1..... 1.1111. "
       ".1..1.. 1.111.. .1...1. ....... 111111."},
  };
  for (const auto& c : cases) {
    const auto engine = engineOf({{"a"}}, [&] {
      std::vector<std::vector<Value>> rows;
      for (const Value& cell : c.cells) rows.push_back({cell});
      return rows;
    }());
    const ConditionHandle condition = engine->addCondition(conditionOf(0, c.value1, c.value2));
    std::istringstream expected(c.expected);
    std::string signs;
    for (int op = 0; expected >> signs; ++op) {
      engine->changeCondition(condition,
                              [&](FormatCondition& own) { own.op = static_cast<std::int16_t>(op); });
      EXPECT_EQ(matches(*engine), signs) << c.what << ", operator " << op;
    }
  }
}

// Texts are searched as they are where that is enough; it must find what their folded forms contain.
TEST(Comparison, FindsPartsWithoutFoldingWhatItFindsWithIt) {
  const char* const letters[] = {"a", "A", "e", "y", "Y", "\t", " ",      "-", "7", "á", "Ä",
                                 "ά", "Α", "α", "ς", "æ", "ß",  "\u0301", "ỹ", "Ж", "中"};
  std::mt19937 random(7);
  const auto text = [&](std::size_t most, std::size_t kinds) {
    std::string made;
    for (std::size_t i = random() % (most + 1); i > 0; --i) made += letters[random() % kinds];
    return made;
  };
  int answered = 0, found = 0;
  for (int i = 0; i < 20000; ++i) {
    const std::size_t kinds = i % 2 == 0 ? 15 : std::size(letters);
    std::string part, folded;
    appendFoldedText(text(3, kinds), part);
    const std::string whole = text(60, kinds);
    appendFoldedText(whole, folded);
    const TextPart wanted(part);
    const std::optional<bool> known = wanted.isIn(whole);
    if (!known) continue;
    ++answered;
    found += *known ? 1 : 0;
    ASSERT_EQ(*known, wanted.isInFolded(folded)) << whole << " / " << part;
  }
  EXPECT_GT(answered, 5000);
  EXPECT_GT(found, 1000);
}

}  // namespace
}  // namespace vmgv

// What the engine gives a view and a host beyond the contract.
#include "fixture.h"

namespace vmgv {
namespace {

TEST(Engine, KeepsTheLayoutWhereTheFieldsStay) {
  const auto engine = engineOf({{"n"}, {"t"}}, {{2, "b"}, {1, "a"}});
  engine->addSortKey({1, 1});
  engine->setColPosition(2, 1);
  engine->select({1});
  MemorySource same({{"n"}, {"t"}}, {{9, "z"}, {8, "y"}});
  engine->load(same);
  EXPECT_EQ(rowsOf(*engine), (Rows{"8|y", "9|z"}));
  EXPECT_EQ(engine->columnAtPosition(1), 2);
  EXPECT_TRUE(engine->selection().empty());

  MemorySource other({{"n"}}, {{7}, {6}});
  other.breaks = true;
  EXPECT_EQ(errorOf([&] { engine->load(other); }), 57);
  EXPECT_EQ(rowsOf(*engine), (Rows{"8|y", "9|z"}));  // what failed took nothing away
  other.breaks = false;
  engine->load(other);
  EXPECT_EQ(rowsOf(*engine), (Rows{"7", "6"}));
  EXPECT_TRUE(engine->sortKeys().empty());
}

TEST(Engine, WidensOrReadsAgainWhereAnUndeclaredColumnAsksForIt) {
  const struct {
    std::vector<Value> values;
    ColumnType type;
    int readings;
    const char* shown;  // the first value
  } cases[] = {
      {{Null{}, Null{}}, ColumnType::Unknown, 1, ""},
      {{1, Null{}, 2.5}, ColumnType::Number, 1, "1"},
      {{0.5, 7}, ColumnType::Number, 1, "0.5"},
      {{7, "x"}, ColumnType::Text, 2, "7"},
      {{"007", 7}, ColumnType::Text, 1, "007"},
      {{true, 1}, ColumnType::Text, 2, "true"},
      {{Date{36526}, "x"}, ColumnType::Text, 2, "2000-01-01"},
  };
  for (const auto& c : cases) {
    std::vector<std::vector<Value>> rows;
    for (const Value& value : c.values) rows.push_back({value, "beside"});
    MemorySource source({{"v"}, {"w"}}, rows);
    GridEngine engine;
    EXPECT_TRUE(engine.load(source).empty());
    EXPECT_EQ(engine.column(1).type, c.type) << c.shown;
    EXPECT_EQ(source.readings, c.readings) << c.shown;
    EXPECT_EQ(engine.displayText(1, 1), c.shown);
    EXPECT_EQ(engine.displayText(engine.rowCount(), 2), "beside");
  }
}

TEST(Engine, TakesShortAndLongRowsAndOddDates) {
  MemorySource source({{"v"}, {"w"}}, {{1}, {2, "x", "too many"}, {3, Date{1e9}}, {4, Date{-657435}}});
  GridEngine engine;
  const Problems problems = engine.load(source);
  EXPECT_EQ(rowsOf(engine), (Rows{"1|~", "2|x", "3|~", "4|~"}));
  const std::string what = ": a date outside the years 100 to 9999 was left out";
  EXPECT_EQ(problems.messages(), (Rows{"memory, row 3" + what, "memory, row 4" + what}));
}

}  // namespace
}  // namespace vmgv

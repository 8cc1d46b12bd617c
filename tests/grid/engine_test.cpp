// What the engine gives a view and a host beyond the contract.
#include "fixture.h"

namespace vmgv {
namespace {

class Recorder final : public GridObserver {
 public:
  explicit Recorder(GridEngine& engine) : engine_(engine) { engine.addObserver(this); }
  ~Recorder() override { engine_.removeObserver(this); }
  void layoutChanged() override { told_ += 'L'; }
  void rowsChanged() override { told_ += 'R'; }
  void selectionChanged() override { told_ += 'S'; }
  void appearanceChanged() override { told_ += 'A'; }
  std::string take() { return std::exchange(told_, {}); }

 private:
  GridEngine& engine_;
  std::string told_;
};

std::vector<std::vector<Value>> threeRows() { return {{2, "b"}, {1, "a"}, {3, "c"}}; }

TEST(Engine, TellsViewsOnceRedrawIsOnAgain) {
  const auto engine = engineOf({{"n"}, {"t"}}, threeRows());
  Recorder view(*engine);
  engine->addSortKey({1, 1});
  EXPECT_EQ(view.take(), "R");
  engine->setVisible(2, false);
  EXPECT_EQ(view.take(), "L");
  engine->setVisible(2, false);
  EXPECT_EQ(view.take(), "");  // nothing changed
  engine->select({2});
  EXPECT_EQ(view.take(), "S");
  engine->changeSettings([](GridSettings& s) { s.useEvenOddColor = true; });
  EXPECT_EQ(view.take(), "A");

  engine->setRedraw(false);
  engine->clearSortKeys();
  engine->addSortKey({1, -1});
  engine->setColPosition(2, 1);
  EXPECT_EQ(view.take(), "");
  engine->setRedraw(true);
  EXPECT_EQ(view.take(), "LR");
  engine->setRedraw(true);
  EXPECT_EQ(view.take(), "");
}

TEST(Engine, KeepsTheLayoutWhereTheFieldsStay) {
  const auto engine = engineOf({{"n"}, {"t"}}, threeRows());
  engine->addSortKey({1, 1});
  engine->setColPosition(2, 1);
  engine->setPreviewColumn("t");
  engine->select({1});
  MemorySource same({{"n"}, {"t"}}, {{9, "z"}, {8, "y"}});
  engine->load(same);
  EXPECT_EQ(rowsOf(*engine), (std::vector<std::string>{"8|y", "9|z"}));
  EXPECT_EQ(engine->columnAtPosition(1), 2);
  EXPECT_EQ(engine->previewColumnIndex(), 2);
  EXPECT_TRUE(engine->selection().empty());

  MemorySource other({{"n"}}, {{9}, {8}});
  engine->load(other);
  EXPECT_EQ(rowsOf(*engine), (std::vector<std::string>{"9", "8"}));
  EXPECT_TRUE(engine->sortKeys().empty());
  EXPECT_EQ(engine->previewColumnIndex(), 0);
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
  EXPECT_EQ(rowsOf(engine), (std::vector<std::string>{"1|~", "2|x", "3|~", "4|~"}));
  ASSERT_EQ(problems.messages().size(), 2u);
  EXPECT_EQ(problems.messages()[0], "memory, row 3: a date outside the years 100 to 9999 was left out");
}

TEST(Engine, ShowsValuesAsTextAndAlignsThem) {
  const auto engine =
      engineOf({{"w"}, {"n"}, {"d"}, {"b"}, {"t"}},
               {{-7, 0.1, Date{36526.25}, true, "ξ"}, {Null{}, 1e20, Date{36526}, false, Null{}}});
  std::string shown, sides;
  for (std::int32_t row = 1; row <= 2; ++row) {
    for (std::int32_t column = 1; column <= 5; ++column) shown += engine->displayText(row, column) + ';';
  }
  for (std::int32_t column = 1; column <= 5; ++column)
    sides += "LCR"[static_cast<int>(engine->alignment(column))];
  EXPECT_EQ(shown, "-7;0.1;01/01/2000 06:00:00;True;ξ;;1E+20;01/01/2000;False;;");
  EXPECT_EQ(sides, "RRRCL");
}

}  // namespace
}  // namespace vmgv

// Format conditions: through the contract, and what they make of rows.
#include "fixture.h"

namespace vmgv {
namespace {

TEST(Conditions, AreAddedChangedAndRemovedByName) {
  const ObjectRef all = makeGridObject(engineOf({{"a"}, {"b"}}, {})).object("FmtConditions");
  all.call("Add", 2, 6, 1.5, "x", "one");
  // As an editor adds one: column 1, the name, nothing between.
  for (const char* name : {"δύο", "3"}) all.call("Add", 1, Missing{}, Missing{}, Missing{}, name);
  const ObjectRef one = all.item("one").object(), two = all.item(2).object();
  EXPECT_EQ(two.get("Name"), Value("δύο"));
  EXPECT_EQ(errorOf([&] { all.call("Add", 1, 6, 1, 2, "one"); }), 457);
  EXPECT_EQ(errorOf([&] { all.call("Add", 1, 6, 1, 2, ""); }), 5);
  EXPECT_EQ(errorOf([&] { all.call("Add", 3, 0, 1, 2, "far"); }), 9);
  EXPECT_EQ(errorOf([&] { all.call("Add", 1, 10, 1, 2, "op"); }), 5);
  EXPECT_EQ(one.get("Operator"), Value(std::int16_t{6}));
  EXPECT_EQ(one.get("Value2"), Value("x"));
  EXPECT_TRUE(two.get("Value2").isEmpty());
  two.put("Operator", "8");
  two.put("Value2", "γ");
  EXPECT_EQ(two.get("Operator"), Value(std::int16_t{8}));
  EXPECT_EQ(two.get("Value2"), Value("γ"));
  EXPECT_EQ(errorOf([&] { two.put("ColIndex", 3); }), 9);
  EXPECT_EQ(errorOf([&] { two.put("Operator", -1); }), 5);
  all.call("Remove", "one");
  EXPECT_EQ(all.item(1).object().get("Name"), Value("δύο"));
  for (const Value& gone : {Value(3), Value("one")}) EXPECT_EQ(errorOf([&] { all.item(gone); }), 9);
}

TEST(Conditions, StylesFollowTheGridWhereNotSet) {
  const ObjectRef grid = makeGridObject(engineOf({{"a"}}, {}));
  grid.object("FmtConditions").call("Add", 1, 1, 2, 3, "x");
  const ObjectRef style = grid.object("FmtConditions").object("Item", 1).object("FormatStyle");
  const ObjectRef font = grid.object("Font");
  const struct {
    const char* ofStyle;
    const ObjectRef& owner;
    const char* member;
    Value other, third;
  } members[] = {
      {"BackColor", grid, "BackColor", 0x0000FF, 0x00FF00},
      {"FontName", font, "name", "Serif", "Mono"},
      {"FontSize", font, "size", 20.0, 5.5},
      {"FontStrikethru", font, "Strikethrough", true, true},
  };
  for (const auto& m : members) {
    const Value own = m.owner.get(m.member);
    EXPECT_EQ(style.get(m.ofStyle), own) << m.ofStyle;
    style.put(m.ofStyle, m.other);
    EXPECT_EQ(style.get(m.ofStyle), m.other) << m.ofStyle;
    EXPECT_EQ(m.owner.get(m.member), own) << m.ofStyle;
    style.put(m.ofStyle, own);  // that is, not set
    m.owner.put(m.member, m.third);
    EXPECT_EQ(style.get(m.ofStyle), m.third) << m.ofStyle;
  }
}

TEST(Conditions, LaterOnesWinAttributeByAttributeAndFollowEveryChange) {
  const auto engine = engineOf({{"a"}, {"b"}}, {{1, "x"}, {2, "y"}, {3, "x"}});
  const auto add = [&](const char* name, std::int32_t column, const Value& value, FormatStyle style) {
    return engine->addCondition({name, column, 0, value, {}, std::move(style)});
  };
  FormatStyle red, redBold, big;
  red.backColor = redBold.backColor = 0x0000FF;
  redBold.fontBold = true;
  big.fontSize = 20;
  big.backColor = 0x00FF00;
  add("first", 2, "X", redBold);
  const ConditionHandle second = add("second", 1, 3, big);
  add("idle", 1, 3, {});
  engine->changeSettings([](GridSettings& settings) { settings.useEvenOddColor = true; });
  const auto style = [&](std::int32_t row) { return engine->styleOf(engine->displayRow(row)); };
  EXPECT_TRUE(style(1).backColor == 0x0000FF && style(1).font.bold && style(1).font.size == 9);
  EXPECT_TRUE(style(2).alternate && style(2).backColor == kWindowColor);
  EXPECT_TRUE(style(3).backColor == 0x00FF00 && style(3).font.bold && style(3).font.size == 20);
  const RowReasons reasons = engine->reasonsOf(engine->displayRow(3));
  ASSERT_EQ(reasons.matching.size(), 3u);
  EXPECT_EQ(reasons.winner[static_cast<std::size_t>(StyleAttribute::BackColor)], 1u);
  EXPECT_EQ(reasons.winner[static_cast<std::size_t>(StyleAttribute::FontBold)], 0u);
  EXPECT_FALSE(reasons.winner[static_cast<std::size_t>(StyleAttribute::ForeColor)]);

  engine->changeCondition(second, [](FormatCondition& own) { own.value1 = "2"; });
  EXPECT_TRUE(style(2).backColor == 0x00FF00 && !style(2).alternate);
  EXPECT_EQ(style(3).backColor, 0x0000FF);
  auto names = std::make_shared<ValueList>();
  names->items = {{Value(1), "two"}, {Value(2), "2"}, {Value(3), "Two"}};
  engine->changeCondition(second, [](FormatCondition& own) { own.value1 = 3; });
  engine->setValueList(1, names);
  EXPECT_TRUE(style(1).font.size == 20 && style(2).font.size == 9) << "as the texts that the column shows";
  MemorySource texts({{"a", "", ColumnType::Text}, {"b"}}, {{"TWO", "x"}});
  engine->setValueList(1, nullptr);
  engine->load(texts);
  engine->changeCondition(second, [](FormatCondition& own) { own.value1 = "two"; });
  EXPECT_EQ(style(1).font.size, 20) << "the column holds texts now";
  engine->removeCondition("second");
  EXPECT_TRUE(style(1).font.size == 9 && style(1).backColor == 0x0000FF);
  engine->undo();
  EXPECT_EQ(style(1).font.size, 20);
}

TEST(Conditions, MayBeManyAndMayHaveLostTheirColumn) {
  const auto engine = engineOf({{"a"}}, {{1}, {77}});
  constexpr int kMany = 10'000;
  engine->setRedraw(false);
  for (int i = 0; i < kMany; ++i) {
    FormatStyle style;
    style.backColor = i;
    engine->addCondition({"condition " + std::to_string(i), 1, kLastOperator, i, {}, style});
  }
  engine->setRedraw(true);
  EXPECT_EQ(engine->styleOf(engine->displayRow(1)).backColor, kMany - 1);
  EXPECT_EQ(engine->reasonsOf(engine->displayRow(2)).matching.size(), kMany - 2u) << "7 and 77 are in 77";
  engine->removeCondition("condition 9999");
  EXPECT_EQ(engine->styleOf(engine->displayRow(1)).backColor, kMany - 2);
  engine->undo();
  EXPECT_EQ(engine->conditions().size(), std::size_t{kMany});

  RowStyles styles;
  const ConditionHandle lost = std::make_shared<SharedCondition>(FormatCondition{"x", 3, 1, 0, {}, {}});
  const std::vector<ColumnData> data(1);
  const std::vector<GridColumn> columns(1);
  styles.follow({}, std::span(&lost, 1), columns, data);
  EXPECT_TRUE(styles.reasonsOf(0).matching.empty());
  EXPECT_EQ(styles.matchingRecords(0).count(), 0u);
}

}  // namespace
}  // namespace vmgv

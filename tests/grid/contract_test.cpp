// The grid as its clients see it: by member name only.
#include "grid/contract.h"
#include "fixture.h"

namespace vmgv {
namespace {

using Longs = std::vector<std::int32_t>;

struct Grid {
  std::shared_ptr<GridEngine> engine = engineOf(
      {{"id"}, {"name"}, {"born", "Born on"}},
      {{3, "gamma", Date{10}}, {1, "Alpha", Null{}}, {2, "beta", Date{20.5}}, {1, "alpha", Date{5}}});
  ObjectRef grid = makeGridObject(engine);

  ObjectRef column(std::int32_t index) const { return grid.object("Columns", index); }
  ObjectRef row(std::int32_t position) const { return grid.object("GetRowData", position); }
};

TEST(Contract, ReachesColumnsByIndexFieldAndPosition) {
  const Grid g;
  const ObjectRef columns = g.grid.object("columns");
  EXPECT_EQ(columns.get("Count"), Value(3));
  for (const Value& key : {Value(3), Value("born"), Value("BORN"), Value("3"), Value(3.0)}) {
    const ObjectRef column = columns.item(key).object();
    EXPECT_EQ(column.get("Index"), Value(3));
    EXPECT_EQ(column.get("Caption"), Value("Born on"));
  }
  for (const char* key : {"0", "4", "-1", "nobody", "9"}) {
    EXPECT_EQ(errorOf([&] { columns.item(key); }, key), 9);
  }
  EXPECT_EQ(errorOf([&] { columns.item(Null{}); }), 94);
}

TEST(Contract, KeepsPositionsAPermutation) {
  const Grid g;
  const auto order = [&] {
    Longs indexes;
    for (std::int32_t position = 1; position <= 3; ++position) {
      const ObjectRef column = g.grid.object("Columns").object("ItemByPosition", position);
      EXPECT_EQ(column.get("ColPosition"), Value(position));
      indexes.push_back(toLong(column.get("Index")));
    }
    return indexes;
  };
  const struct {
    std::int32_t index, position;
    Longs order;
  } moves[] = {{1, 3, {2, 3, 1}}, {3, 1, {3, 2, 1}}, {3, 1, {3, 2, 1}},
               {2, 3, {3, 1, 2}}, {2, 1, {2, 3, 1}}, {1, 1, {1, 2, 3}}};
  for (const auto& move : moves) {
    g.column(move.index).put("ColPosition", move.position);
    EXPECT_EQ(order(), move.order);
  }
  g.column(2).put("Visible", false);
  for (const std::int32_t wrong : {0, 4, -7}) {
    EXPECT_EQ(errorOf([&] { g.column(1).put("ColPosition", wrong); }), 9);
  }
  EXPECT_EQ(order(), (Longs{1, 2, 3}));
  EXPECT_EQ(g.engine->visibleColumns(), (Longs{1, 3}));
}

TEST(Contract, RefusesKeysThatMakeNoSense) {
  const Grid g;
  for (const char* collection : {"SortKeys", "Groups"}) {
    const ObjectRef keys = g.grid.object(collection);
    keys.call("Add", 2, -1);
    for (const auto& [column, order] : {std::pair{-1, 1}, {0, 1}, {4, 1}, {2, 1}, {1, 0}, {1, 2}}) {
      EXPECT_EQ(errorOf([&, c = column, o = order] { keys.call("Add", c, o); }), 5)
          << collection << ' ' << column;
    }
    ASSERT_EQ(keys.get("Count"), Value(1));
    EXPECT_EQ(keys.item(1).object().get("ColIndex"), Value(2));
    EXPECT_EQ(keys.item(1).object().get("SortOrder"), Value(kSortDescending));
  }
}

TEST(Contract, GivesRowsByPosition) {
  auto g = std::make_unique<Grid>();
  const ObjectRef grid = g->grid, row = g->row(3);
  const ObjectRef other = g->row(2);  // both are held, so they are two
  g.reset();                          // the host lets go of the engine
  EXPECT_EQ(toLong(row.get("RowType")), kRecordRow);
  EXPECT_EQ(row.get("Value", 3), Value(Date{20.5}));
  EXPECT_EQ(other.get("Value", 3), Value(Null{}));
  grid.object("SortKeys").call("Add", 1, -1);
  EXPECT_EQ(row.get("Value", 2), Value("beta"));  // still the record that it was
  for (const std::int32_t wrong : {0, 5, -1}) EXPECT_EQ(errorOf([&] { grid.get("GetRowData", wrong); }), 9);
  for (const std::int32_t wrong : {0, 4}) EXPECT_EQ(errorOf([&] { row.get("Value", wrong); }), 9);
}

TEST(Contract, SelectsByPosition) {
  const Grid g;
  const auto selected = [&] {
    Longs positions;
    const ObjectRef items = g.grid.object("SelectedItems");
    for (std::int32_t i = 1; i <= toLong(items.get("Count")); ++i) {
      positions.push_back(toLong(items.item(i).object().get("RowPosition")));
    }
    return positions;
  };
  EXPECT_EQ(selected(), Longs{});
  g.engine->select({3, 1, 3});
  EXPECT_EQ(selected(), (Longs{1, 3}));
  g.grid.object("SortKeys").call("Add", 1, 1);  // gamma goes to row 4; beta stays in row 3
  EXPECT_EQ(errorOf([&] { g.engine->select({5}); }), 9);
  EXPECT_EQ(selected(), (Longs{3, 4}));
  EXPECT_EQ(errorOf([&] { g.grid.object("SelectedItems").item(3); }), 9);
  g.grid.put("MultiSelect", false);
  EXPECT_EQ(selected(), Longs{3});
  g.engine->select({1, 2});
  EXPECT_EQ(selected(), Longs{2});
}

TEST(Contract, KeepsWhatIsWrittenToItsSettings) {
  const Grid g;
  const struct {
    const char* member;
    Value written, read;
  } cases[] = {
      {"PreviewColumn", 2, 2},
      {"PreviewColumn", "", Null{}},
      {"PreviewColumn", 0, Null{}},
      {"PreviewColumn", "born", "born"},
  };
  for (const auto& c : cases) {
    g.grid.put(c.member, c.written);
    EXPECT_EQ(g.grid.get(c.member), c.read) << c.member;
  }
  EXPECT_EQ(errorOf([&] { g.grid.put("PreviewColumn", "nobody"); }), 9);
  EXPECT_EQ(g.engine->previewColumnIndex(), 3);
  EXPECT_EQ(errorOf([&] { g.grid.put("PreviewRowLines", "many"); }), 13);
}

TEST(Contract, TranslatesValuesOfAValueList) {
  const Grid g;
  EXPECT_EQ(errorOf([&] { g.column(1).object("ValueList"); }), 91);
  const ValueList texts{{{1, "one"}, {2.0, "two"}, {Null{}, "none"}}};
  g.engine->setValueList(1, std::make_shared<ValueList>(texts));
  const ObjectRef list = g.column(1).object("ValueList");
  EXPECT_EQ(list.object("ItemByValue", 2).get("Text"), Value("two"));
  EXPECT_EQ(list.object("ItemByValue", Null{}).get("Text"), Value("none"));
  for (const Value& missing : {Value(3), Value("1"), Value("")}) {
    EXPECT_EQ(errorOf([&] { list.get("ItemByValue", missing); }), 9);
  }
  EXPECT_EQ(g.engine->displayText(2, 1), "one");
  EXPECT_EQ(g.engine->displayText(1, 1), "3");  // not in the list
}

}  // namespace
}  // namespace vmgv

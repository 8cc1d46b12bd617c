// The grid as its clients see it: by member name only.
#include "grid/contract.h"
#include "fixture.h"

namespace vmgv {
namespace {

struct Grid {
  std::shared_ptr<GridEngine> engine =
      engineOf({{"id", "No."}, {"name"}, {"born", "Born on"}}, {
                                                                   {3, "gamma", Date{10}},
                                                                   {1, "Alpha", Null{}},
                                                                   {2, "beta", Date{20.5}},
                                                                   {1, "alpha", Date{5}},
                                                               });
  ObjectRef grid = makeGridObject(engine);

  ObjectRef column(std::int32_t index) const { return grid.object("Columns", index); }
  std::string order() const {  // captions' first letters by position
    std::string letters;
    const ObjectRef columns = grid.object("Columns");
    for (std::int32_t p = 1; p <= toLong(columns.get("Count")); ++p) {
      letters += columns.object("ItemByPosition", p).get("Caption").text()[0];
    }
    return letters;
  }
  std::string names() const {  // the values of column 2 by row
    std::string all;
    for (std::int32_t p = 1; p <= toLong(grid.get("RowCount")); ++p) {
      all += toText(grid.object("GetRowData", p).get("Value", 2)) + ' ';
    }
    return all;
  }
};

TEST(Contract, ReachesColumnsByIndexFieldAndPosition) {
  const Grid g;
  const ObjectRef columns = g.grid.object("columns");
  EXPECT_EQ(columns.get("Count"), Value(3));
  for (const Value& key : {Value(3), Value("born"), Value("BORN"), Value("3"), Value(3.0)}) {
    const ObjectRef column = columns.item(key).object();
    EXPECT_EQ(column.get("Index"), Value(3));
    EXPECT_EQ(column.get("Caption"), Value("Born on"));
    EXPECT_EQ(column.get("DataField"), Value("born"));
    EXPECT_EQ(column.get("Key"), Value("born"));
    EXPECT_EQ(column.get("HasValueList"), Value(false));
  }
  for (const Value& key : {Value(0), Value(4), Value(-1), Value("nobody"), Value("9")}) {
    EXPECT_EQ(errorOf([&] { columns.item(key); }), 9);
  }
  EXPECT_EQ(errorOf([&] { columns.item(Null{}); }), 94);
  EXPECT_EQ(errorOf([&] { columns.get("ItemByPosition", 4); }), 9);
  EXPECT_NE(descriptionOf([&] { columns.item(17); }).find("17"), std::string::npos);
  EXPECT_EQ(errorOf([&] { g.grid.get("Colums"); }), 438);
  EXPECT_EQ(errorOf([&] { g.column(1).put("Index", 2); }), 438);
}

TEST(Contract, KeepsPositionsAPermutation) {
  const struct {
    std::int32_t index, position;
    const char* order;
  } moves[] = {{1, 3, "nBN"}, {3, 1, "BnN"}, {3, 1, "BnN"}, {2, 3, "BNn"}, {2, 1, "nBN"}, {1, 1, "NnB"}};
  const Grid g;
  for (const auto& move : moves) {
    g.column(move.index).put("ColPosition", move.position);
    EXPECT_EQ(g.order(), move.order);
    EXPECT_EQ(g.column(move.index).get("ColPosition"), Value(move.position));
  }
  g.column(2).put("Visible", false);
  EXPECT_EQ(g.order(), "NnB");
  EXPECT_EQ(g.engine->visibleColumns(), (std::vector<std::int32_t>{1, 3}));
  for (const std::int32_t wrong : {0, 4, -7}) {
    EXPECT_EQ(errorOf([&] { g.column(1).put("ColPosition", wrong); }), 9);
  }
  EXPECT_EQ(g.order(), "NnB");
}

TEST(Contract, ShowsTheColumnsAClientChose) {
  // Hides all, then shows some and places them in turn, as a column chooser does.
  const Grid g;
  for (std::int32_t i = 1; i <= 3; ++i) g.column(i).put("Visible", false);
  std::int32_t position = 0;
  for (const std::int32_t index : {3, 1}) {
    g.column(index).put("Visible", true);
    g.column(index).put("ColPosition", ++position);
  }
  EXPECT_EQ(g.engine->visibleColumns(), (std::vector<std::int32_t>{3, 1}));
  EXPECT_EQ(g.order(), "BNn");
}

TEST(Contract, SortsByItsKeysAndKeepsTheOrderOfEqualRows) {
  const struct {
    std::vector<std::pair<std::int32_t, std::int32_t>> keys;
    const char* names;
  } cases[] = {
      {{}, "gamma Alpha beta alpha "},
      {{{1, 1}}, "Alpha alpha beta gamma "},
      {{{1, -1}}, "gamma beta Alpha alpha "},
      {{{2, 1}}, "alpha Alpha beta gamma "},
      {{{1, 1}, {3, -1}}, "alpha Alpha beta gamma "},
      {{{3, 1}}, "Alpha alpha gamma beta "},
  };
  const Grid g;
  const ObjectRef keys = g.grid.object("SortKeys");
  for (const auto& c : cases) {
    g.grid.put("Redraw", false);
    keys.call("Clear");
    for (const auto& [column, order] : c.keys) keys.call("Add", column, order);
    g.grid.put("Redraw", true);
    EXPECT_EQ(g.names(), c.names);
    EXPECT_EQ(keys.get("Count"), Value(static_cast<std::int32_t>(c.keys.size())));
  }
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
    for (const std::int32_t wrong : {0, 2}) EXPECT_EQ(errorOf([&] { keys.get("Item", wrong); }), 9);
    keys.call("Clear");
    EXPECT_EQ(keys.get("Count"), Value(0));
  }
}

TEST(Contract, GivesRowsByPosition) {
  const Grid g;
  const ObjectRef row = g.grid.object("GetRowData", 3);
  const ObjectRef other = g.grid.object("GetRowData", 2);  // both are held, so they are two
  EXPECT_EQ(toLong(row.get("RowType")), kRecordRow);
  EXPECT_EQ(row.get("Value", 1), Value(2));
  EXPECT_EQ(row.get("Value", 2), Value("beta"));
  EXPECT_EQ(row.get("Value", 3), Value(Date{20.5}));
  EXPECT_EQ(other.get("Value", 3), Value(Null{}));
  g.grid.object("SortKeys").call("Add", 1, -1);
  EXPECT_EQ(row.get("Value", 2), Value("beta"));  // still the record that it was
  for (const std::int32_t wrong : {0, 5, -1}) EXPECT_EQ(errorOf([&] { g.grid.get("GetRowData", wrong); }), 9);
  for (const std::int32_t wrong : {0, 4}) EXPECT_EQ(errorOf([&] { row.get("Value", wrong); }), 9);

  MemorySource shorter({{"id"}, {"name"}, {"born"}}, {});
  g.engine->load(shorter);
  EXPECT_EQ(errorOf([&] { row.get("Value", 1); }), 9);
}

TEST(Contract, SelectsByPosition) {
  const Grid g;
  const auto selected = [&] {
    std::string all;
    const ObjectRef items = g.grid.object("SelectedItems");
    for (std::int32_t i = 1; i <= toLong(items.get("Count")); ++i) {
      all += toText(items.get("Item", i).object().get("RowPosition")) + ' ';
    }
    return all;
  };
  EXPECT_EQ(selected(), "");
  g.engine->select({3, 1, 3});
  EXPECT_EQ(selected(), "1 3 ");
  g.grid.object("SortKeys").call("Add", 1, 1);  // gamma goes to row 4; beta stays in row 3
  EXPECT_EQ(selected(), "3 4 ");
  EXPECT_EQ(errorOf([&] { g.engine->select({5}); }), 9);
  EXPECT_EQ(selected(), "3 4 ");
  EXPECT_EQ(errorOf([&] { g.grid.object("SelectedItems").item(3); }), 9);
  g.grid.put("MultiSelect", false);
  EXPECT_EQ(selected(), "3 ");
  g.engine->select({1, 2});
  EXPECT_EQ(selected(), "2 ");
}

TEST(Contract, KeepsWhatIsWrittenToItsSettings) {
  const Grid g;
  const struct {
    const char* member;
    Value written, read;
  } cases[] = {
      {"PreviewRowLines", "3", 3},
      {"UseEvenOddColor", true, true},
      {"ColumnAutoResize", -1, true},
      {"GroupByBoxVisible", true, true},
      {"GroupByBoxInfoText", "Σύρετε εδώ", "Σύρετε εδώ"},
      {"GroupFooterStyle", 2, std::int16_t{2}},
      {"BackColor", 0xFFFFFF, 0xFFFFFF},
      {"ForeColor", 255.0, 255},
      {"MultiSelect", 0, false},
      {"Redraw", false, false},
      {"PreviewColumn", 2, 2},
      {"PreviewColumn", "born", "born"},
      {"PreviewColumn", Null{}, Null{}},
      {"PreviewColumn", "", Null{}},
      {"PreviewColumn", 0, Null{}},
  };
  for (const auto& c : cases) {
    g.grid.put(c.member, c.written);
    EXPECT_EQ(g.grid.get(c.member), c.read) << c.member;
  }
  g.grid.put("PreviewColumn", "born");
  EXPECT_EQ(errorOf([&] { g.grid.put("PreviewColumn", "nobody"); }), 9);
  EXPECT_EQ(errorOf([&] { g.grid.put("PreviewColumn", 4); }), 9);
  EXPECT_EQ(g.grid.object("Columns", g.grid.get("PreviewColumn")).get("Index"), Value(3));
  EXPECT_EQ(errorOf([&] { g.grid.put("PreviewRowLines", "many"); }), 13);

  const ObjectRef printer = g.grid.object("PrinterProperties");
  printer.put("HeaderString", 1, "Sales");
  printer.put("FooterString", 3, "Page 1");
  EXPECT_EQ(printer.get("HeaderString", 1), Value("Sales"));
  EXPECT_EQ(printer.get("FooterString", 3), Value("Page 1"));
  EXPECT_EQ(printer.get("FooterString", 1), Value(""));
  EXPECT_EQ(errorOf([&] { printer.put("HeaderString", 4, ""); }), 9);
  EXPECT_EQ(errorOf([&] { g.grid.call("PrintGrid", true); }), 438);
  for (const char* method : {"Refresh", "RefreshGroups", "ExpandAll"}) {
    EXPECT_EQ(errorOf([&] { g.grid.call(method); }), 0) << method;
  }
}

TEST(Contract, TranslatesValuesOfAValueList) {
  const Grid g;
  EXPECT_EQ(errorOf([&] { g.column(1).object("ValueList"); }), 91);
  g.engine->setValueList(
      1, std::make_shared<ValueList>(ValueList{{{1, "one"}, {2.0, "two"}, {Null{}, "none"}}}));
  EXPECT_EQ(g.column(1).get("HasValueList"), Value(true));
  const ObjectRef list = g.column(1).object("ValueList");
  for (const auto& [value, text] :
       {std::pair<Value, const char*>{1, "one"}, {2, "two"}, {1.0, "one"}, {Null{}, "none"}}) {
    EXPECT_EQ(list.object("ItemByValue", value).get("Text"), Value(text));
  }
  for (const Value& missing : {Value(3), Value("1"), Value("")}) {
    EXPECT_EQ(errorOf([&] { list.get("ItemByValue", missing); }), 9);
  }
  EXPECT_EQ(g.engine->displayText(2, 1), "one");
  EXPECT_EQ(g.engine->displayText(1, 1), "3");  // not in the list
}

TEST(Contract, OutlivesTheHostsEngine) {
  ObjectRef row;
  {
    Grid g;
    row = g.grid.object("GetRowData", 1);
  }
  EXPECT_EQ(row.get("Value", 2), Value("gamma"));
}

TEST(Contract, HasNothingInAGridWithoutColumns) {
  const ObjectRef grid = makeGridObject(std::make_shared<GridEngine>());
  EXPECT_EQ(grid.object("Columns").get("Count"), Value(0));
  EXPECT_EQ(grid.get("RowCount"), Value(0));
  EXPECT_EQ(errorOf([&] { grid.object("SortKeys").call("Add", -1, 1); }), 5);
  EXPECT_EQ(errorOf([&] { grid.get("GetRowData", 1); }), 9);
}

}  // namespace
}  // namespace vmgv

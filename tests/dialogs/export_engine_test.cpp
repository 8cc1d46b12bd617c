// The export engine: which cells it writes how, and what it tells when something is missing.
#include <cstdio>

#include "support/automation/date.h"
#include "tests/dialogs/fixture.h"

namespace vmgv {
namespace {

using Log = std::vector<std::string>;

Value moment(int hour) { return dateFromCivil({2026, 11, 5, hour, 4, 9}); }

void run(DialogFixture& f, std::vector<Steps::Step> before = {}) {
  before.push_back(f.click("cmdOK"));
  f.show("ShowExcel", std::move(before));
}

TEST(ExportEngine, EveryTypeOfValueInBothLoops) {
  const struct {
    Value value;
    const char* cell;
  } cases[] = {{Null{}, "-"},
               {dateFromCivil({2026, 11, 5}), "String:11/05/2026"},
               {moment(15), "String:11/05/2026 15:04:09"},
               {moment(0), "String:11/05/2026 00:04:09"},
               {1.5, "Double:1.5"},
               {std::int16_t{2}, "Integer:2"},
               {3, "Long:3"},
               {4.25f, "Single:4.25"},
               {Decimal::fromInteger(5), "Decimal:5"},
               {Currency{15000}, "@String:1.5"},
               {true, "@String:True"},
               {"007\r\nb\rc\n", "@String:007\nb\rc\n"},
               {"", "@String:"},
               {Value(), "@String:"}};
  for (const bool selectedOnly : {false, true}) {
    FakeGrid grid;
    grid.multiSelect = true;
    grid.rows.push_back({0, {}});
    grid.selected = {1};
    for (const auto& c : cases) {
      grid.columns.push_back({"C"});
      grid.rows[0].values.push_back(c.value);
    }
    DialogFixture f(std::move(grid));
    if (selectedOnly) {
      run(f, {f.click("chkSelected")});
    } else {
      run(f);
    }
    for (std::size_t i = 0; i < std::size(cases); ++i) {
      EXPECT_EQ(f.excel.cell(2, static_cast<int>(i) + 1), cases[i].cell) << i << selectedOnly;
    }
    EXPECT_EQ(f.excel.log, (Log{"AutoFit", "Visible"}));
    EXPECT_EQ(f.grid.log, (Log{"Redraw=False", "Redraw=True", "Redraw=True"}));
  }
}

TEST(ExportEngine, ColumnsByPositionWithoutTheHiddenOnes) {
  DialogFixture f(gridOfColumns(4));
  f.grid.columns[0].position = 4;
  f.grid.columns[1].position = 2;
  f.grid.columns[1].visible = false;
  f.grid.columns[2].position = 3;
  f.grid.columns[3].position = 1;
  f.grid.rows = {{0, {1, 2, 3, 4}}, {1, {9, 9, 9, 9}}, {0, {5, 6, 7, 8}}};  // the second is a group's header
  f.grid.groups = {{1, 1}};
  run(f);
  std::string all;
  for (int row = 1; row <= 4; ++row) {
    for (int column = 1; column <= 4; ++column) all += f.excel.cell(row, column) + " ";
  }
  EXPECT_EQ(all, "String:C4 String:C3 String:C1 - Long:4 Long:3 Long:1 - Long:8 Long:7 Long:5 - - - - - ");
  EXPECT_EQ(f.grid.log, (Log{"Redraw=False", "ExpandAll", "Redraw=True", "Redraw=True"}));
}

TEST(ExportEngine, ValueListsGiveTheirTexts) {
  FakeGrid grid = gridOfColumns(1);
  grid.columns[0].valueList = {{1, "One"}, {2, "=Two"}};
  grid.rows = {{0, {2}}, {0, {3}}, {0, {Null{}}}};
  DialogFixture f(std::move(grid));
  run(f);
  EXPECT_EQ(f.excel.cell(2, 1), "String:=Two");
  EXPECT_EQ(f.excel.cell(3, 1), "-");  // no such entry: the cell stays as it was
  EXPECT_EQ(f.excel.cell(4, 1), "-");
  EXPECT_TRUE(f.messages().empty());
}

TEST(ExportEngine, PreviewRowsAreMergedUnderTheirRecords) {
  FakeGrid grid = gridOfColumns(3);
  grid.columns[2].visible = false;
  grid.previewColumn = 3;
  grid.multiSelect = true;
  grid.selected = {2, 1};
  grid.rows = {{0, {1, 2, "a\r\nb"}}, {0, {3, 4, "c"}}, {0, {5, 6, Null{}}}, {0, {7, 8, 1.5}}};
  {
    DialogFixture f(grid);
    run(f);
    EXPECT_EQ(f.excel.cell(3, 1), "String:a\nb");
    EXPECT_EQ(f.excel.cell(5, 1), "String:c");
    EXPECT_EQ(f.excel.cell(6, 1), "Long:5");
    EXPECT_EQ(f.excel.cell(7, 1), "Long:7");  // no line under a record without a text
    EXPECT_EQ(f.excel.cell(8, 1), "String:1.5");
    EXPECT_EQ(f.excel.log, (Log{"WrapText 3,1-3,2", "Merge 3,1-3,2", "WrapText 5,1-5,2", "Merge 5,1-5,2",
                                "WrapText 8,1-8,2", "Merge 8,1-8,2", "AutoFit", "Visible"}));
  }
  {
    DialogFixture f(grid);
    run(f, {f.click("chkPreviewRow"), f.click("chkSelected")});
    EXPECT_EQ(f.excel.cell(2, 1), "Long:3");  // in the order of the selection, without previews
    EXPECT_EQ(f.excel.cell(3, 1), "Long:1");
  }
  {
    DialogFixture f(grid);
    f.grid.selected = {3};
    run(f, {f.click("chkSelected")});
    EXPECT_EQ(f.messages(), Log{"Error 94\r\nInvalid use of Null"});  // only the other loop tests for Null
    EXPECT_EQ(f.excel.log, Log{"Quit"});
    EXPECT_TRUE(f.grid.redraw);
  }
}

struct Trouble {
  const char* what;
  std::function<void(DialogFixture&)> arrange;
  const char* path;  // of a template, or null
  const char* message;
  MessageStyle style;
  const char* title;
  Log excelLog;
};

TEST(ExportEngine, MessagesOfItsOwn) {
  const std::string existing = testing::TempDir() + "template.xls";
  std::fclose(std::fopen(existing.c_str(), "wb"));
  const char* const app = "vmGridViews";
  const auto nothing = [](DialogFixture&) {};
  const auto failing = [](const char* member) {
    return [member](DialogFixture& f) { f.excel.failing = {member}; };
  };
  const MessageStyle critical = MessageStyle::Critical;
  const Trouble cases[] = {
      {"no Excel",
       [](DialogFixture& f) { f.excelInstalled = false; },
       nullptr,
       "Excel application can not open \r\n Cannot create an object of Excel.Application",
       critical,
       app,
       {}},
      {"no file", nothing, "/nowhere/t.xls", "The file /nowhere/t.xls cannot be found.", critical, app, {}},
      {"a folder", nothing, "/", "The file / cannot be found.", critical, app, {}},
      {"old",
       [](DialogFixture& f) { f.excel.version = "8.0e"; },
       nullptr,
       "This option is supported by version 9 or later.",
       critical,
       app,
       {}},
      {"odd version",
       [](DialogFixture& f) { f.excel.version = "new"; },
       nullptr,
       "This option is supported by version 9 or later.",
       critical,
       app,
       {}},
      {"no workbook",
       failing("Add"),
       nullptr,
       "Unable to create new work sheet. \r\n Add failed",
       critical,
       app,
       {}},
      {"no sheet",
       failing("ActiveSheet"),
       nullptr,
       "Unable to create new work sheet. \r\n ActiveSheet failed",
       critical,
       app,
       {}},
      {"bad template",
       failing("Open"),
       existing.c_str(),
       "Unable to load the template file. \r\n Open failed",
       critical,
       app,
       {}},
      {"no Data sheet",
       [](DialogFixture& f) { f.excel.sheets = {"data2"}; },
       existing.c_str(),
       "'Data' work sheet not found at template file. \r\n To use an existing file you should create a "
       "working sheet "
       "under the name 'Data' in which the table's data will be transfered.",
       MessageStyle::Information,
       app,
       {"Open " + existing}},
      {"not cleared",
       failing("ClearContents"),
       existing.c_str(),
       "Error 1004\r\nClearContents failed",
       critical,
       "Export",
       {"Open " + existing, "Quit"}},
      {"no columns",
       [](DialogFixture& f) { f.grid.columns.clear(); },
       nullptr,
       "Error 113\r\nThere are no columns for export.",
       critical,
       "Export",
       {"Quit"}},
      {"no rows",
       [](DialogFixture& f) { f.grid.rows.clear(); },
       nullptr,
       "Error 114\r\nThere are no records.",
       critical,
       "Export",
       {"Quit"}},
      {"cell", failing("Value"), nullptr, "Error 1004\r\nValue failed", critical, "Export", {"Quit"}},
      {"closed by the user",
       [](DialogFixture& f) {
         f.excel.failing = {"Value"};
         f.excel.sheetGone = true;
       },
       nullptr,
       "Error 1004\r\nThe EXCEL application is unavailable.",
       critical,
       "Export",
       {"Quit"}},
      {"cannot show",
       failing("Visible"),
       nullptr,
       "Error 1004\r\nVisible failed",
       critical,
       "Export",
       {"AutoFit", "Quit"}},
  };
  for (const Trouble& c : cases) {
    FakeGrid grid = gridOfColumns(2);
    grid.rows = {{0, {1, "x"}}};
    DialogFixture f(std::move(grid));
    c.arrange(f);
    const auto fillPath = [&] {
      if (c.path) f.desktop.enter(f.at("txtTemplate"), c.path);
    };
    f.show("ShowExcel", {fillPath, f.click("cmdOK"), [&] { f.desktop.answer(MessageResult::Ok); }});
    ASSERT_EQ(f.desktop.boxes().size(), 1u) << c.what;
    EXPECT_EQ(f.desktop.boxes()[0].text, c.message) << c.what;
    EXPECT_EQ(f.desktop.boxes()[0].style, c.style) << c.what;
    EXPECT_EQ(f.desktop.boxes()[0].title, c.title) << c.what;
    EXPECT_EQ(f.excel.log, c.excelLog) << c.what;
    EXPECT_TRUE(f.grid.redraw) << c.what;
  }
}

TEST(ExportEngine, SelectedRowsNeedASelectionAndAGridThatAllowsOne) {
  FakeGrid grid = gridOfColumns(1);
  grid.multiSelect = true;
  grid.rows = {{0, {1}}, {0, {2}}};
  DialogFixture f(grid);
  f.show("ShowExcel",
         {f.click("chkSelected"), f.click("cmdOK"), [&] { f.desktop.answer(MessageResult::Ok); }});
  EXPECT_EQ(f.messages(), Log{"Error 116\r\nThere are no selected entries."});

  DialogFixture changed(grid);
  run(changed, {changed.click("chkSelected"), [&] { changed.grid.multiSelect = false; }});
  EXPECT_EQ(changed.excel.cells.size(), 3u);  // all rows after all
}

TEST(ExportEngine, TemplatesAndPivotTables) {
  const std::string path = testing::TempDir() + "with pivots.xls";
  std::fclose(std::fopen(path.c_str(), "wb"));
  const struct {
    bool useTemplate, pivot;
    int caches;
    Log log;
  } cases[] = {
      {true, true, 2, {"Open " + path, "ClearContents", "AutoFit", "Refresh 1", "Refresh 2", "Visible"}},
      {true, false, 2, {"Open " + path, "ClearContents", "AutoFit", "Visible"}},
      {true, true, 0, {"Open " + path, "ClearContents", "AutoFit", "Visible"}},
      {false, true, 0, {"AutoFit", "PivotTableWizard", "Update", "Visible"}},
  };
  for (const auto& c : cases) {
    FakeGrid grid = gridOfColumns(1);
    grid.rows = {{0, {1}}};
    DialogFixture f(std::move(grid));
    f.excel.pivotCaches = c.caches;
    run(f, {[&] {
          if (c.useTemplate) f.desktop.enter(f.at("txtTemplate"), path);
          if (c.pivot != (f.at<CheckBox>("chkPivot").value() == 1)) f.desktop.click(f.at("chkPivot"));
        }});
    EXPECT_EQ(f.excel.log, c.log);
    EXPECT_TRUE(f.messages().empty());
  }
}

}  // namespace
}  // namespace vmgv

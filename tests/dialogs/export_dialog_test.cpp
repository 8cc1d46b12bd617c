// The export dialog: its defaults, the template field, and the ways out of it.
#include <cstdio>

#include "tests/dialogs/fixture.h"

namespace vmgv {
namespace {

using Log = std::vector<std::string>;

FakeGrid gridOfRows(int count) {
  FakeGrid grid = gridOfColumns(1);
  for (int i = 1; i <= count; ++i) grid.rows.push_back({0, {i}});
  return grid;
}

TEST(ExportDialog, OptionsFollowTheGrid) {
  const struct {
    Value preview;
    bool multiSelect;
    bool previewOffered;
  } cases[] = {{Null{}, false, false},       {"", true, false}, {0, true, false},
               {Value(), false, false},      {1, true, true},   {"name", false, true},
               {std::int16_t{2}, true, true}};
  for (const auto& c : cases) {
    DialogFixture f(gridOfColumns(2));
    f.grid.previewColumn = c.preview;
    f.grid.multiSelect = c.multiSelect;
    f.show("ShowExcel", {[&] {
             EXPECT_EQ(f.at("chkPreviewRow").enabled(), c.previewOffered);
             EXPECT_EQ(f.at<CheckBox>("chkPreviewRow").value(), c.previewOffered ? 1 : 0);
             EXPECT_EQ(f.at("chkSelected").enabled(), c.multiSelect);
             EXPECT_EQ(f.at<CheckBox>("chkSelected").value(), 0);
             EXPECT_EQ(f.at<CheckBox>("chkPivot").value(), 0);
             f.desktop.closeWindow();
           }});
  }
}

TEST(ExportDialog, ThePivotBoxFollowsTheTemplateField) {
  DialogFixture f(gridOfColumns(1));
  const std::string existing = testing::TempDir() + "chosen.xls";
  std::fclose(std::fopen(existing.c_str(), "wb"));
  const auto pivot = [&] { return f.at<CheckBox>("chkPivot").value(); };
  f.show("ShowExcel", {f.click("cmdOpen"), [&] { f.desktop.pick(existing); },
                       [&] {
                         EXPECT_EQ(f.at<TextBox>("txtTemplate").text(), existing);
                         EXPECT_EQ(pivot(), 1);
                         f.desktop.click(f.at("chkPivot"));  // the user may untick it afterwards
                         EXPECT_EQ(pivot(), 0);
                         f.desktop.enter(f.at("txtTemplate"), "other.xls");
                         EXPECT_EQ(pivot(), 1);
                         f.desktop.enter(f.at("txtTemplate"), "");
                         EXPECT_EQ(pivot(), 0);
                         f.desktop.click(f.at("cmdOpen"));
                       },
                       [&] { f.desktop.pick(existing); }, f.click("cmdOpen"), [&] { f.desktop.pick({}); },
                       [&] {
                         EXPECT_EQ(f.at<TextBox>("txtTemplate").text(),
                                   "");  // a cancelled picker empties the field
                         EXPECT_EQ(pivot(), 0);
                         f.desktop.closeWindow();
                       }});
  const FileRequest& request = f.desktop.boxes().at(0).files;
  EXPECT_EQ(request.filters.at(0).patterns, "*.xls");
  EXPECT_EQ(request.filters.at(1).name, "Excel Template Files (*.xlt)");
  EXPECT_EQ(request.filters.at(3).patterns, "*.xltx;*.xltm");
}

TEST(ExportDialog, WaysOutThatExportNothing) {
  DialogFixture f(gridOfRows(3));
  f.strings.setLanguage(kGreek);
  f.show("ShowExcel", {[&] { EXPECT_EQ(f.at("chkSelected").caption(), "Μόνο οι επιλεγμένες γραμμές"); },
                       f.click("cmdHelp"), [&] { f.desktop.closeWindow(); }});
  EXPECT_EQ(f.desktop.helpCalls().at(0).topic, "gridViewsExcel.htm");
  f.show("ShowExcel", {f.press("cmdOK", Key::Escape)});
  f.show("ShowExcel", {f.press("cmdCancel", Key::Escape)});
  f.show("ShowExcel", {[&] { f.desktop.closeWindow(); }});
  EXPECT_EQ(f.grid.log, Log{});
  f.show("ShowExcel", {f.click("cmdCancel")});
  EXPECT_EQ(f.grid.log, Log{"Redraw=True"});
  EXPECT_TRUE(f.excel.log.empty());
  EXPECT_TRUE(f.excel.cells.empty());
}

// Every way to stop an export while rows are on their way, at the first, a middle and the last row.
TEST(ExportDialog, CancelStopsAtTheNextRow) {
  using Act = std::function<void(DialogFixture&)>;
  const Act acts[] = {[](DialogFixture& f) { f.desktop.click(f.at("cmdCancel")); },
                      [](DialogFixture& f) { f.desktop.press(f.at("cmdCancel"), Key::Escape, 0); },
                      [](DialogFixture& f) { f.desktop.closeWindow(); }};
  for (const Act& act : acts) {
    for (const int row : {1, 60, 100}) {
      DialogFixture f(gridOfRows(100));
      bool acted = false;
      f.show("ShowExcel", {f.click("cmdOK")}, [&] {
        if (acted || !f.desktop.form() || f.at<ProgressBar>("prbar").value() != row) return;
        EXPECT_FALSE(f.at("cmdOK").enabled());
        acted = true;
        act(f);
      });
      ASSERT_TRUE(acted);
      EXPECT_EQ(f.excel.log, Log{"Quit"});
      EXPECT_EQ(f.excel.cells.size(), static_cast<std::size_t>(row) + 1);  // with the header
      EXPECT_TRUE(f.grid.redraw);
      EXPECT_TRUE(f.messages().empty());
    }
  }
}

TEST(ExportDialog, ProgressIsShownRowByRowAndTheLabelEveryFifty) {
  DialogFixture f(gridOfRows(120));
  std::vector<std::string> labels;
  int last = 0;
  f.show("ShowExcel", {f.click("cmdOK")}, [&] {
    EXPECT_EQ(f.desktop.form()->pointer(), Pointer::ArrowHourglass);
    const auto& bar = f.at<ProgressBar>("prbar");
    EXPECT_LE(bar.value() - last, 1);
    last = bar.value();
    if (labels.empty() || labels.back() != f.at("Label1").caption())
      labels.push_back(f.at("Label1").caption());
  });
  EXPECT_EQ(last, 119);
  EXPECT_EQ(labels, (Log{"Export data...", "Export data (50 from 120)...", "Export data (100 from 120)..."}));
  EXPECT_EQ(f.excel.log, (Log{"AutoFit", "Visible"}));
}

}  // namespace
}  // namespace vmgv

// Every single late-bound call of an export fails once: no crash, the right message, a grid that paints.
#include "tests/dialogs/contract_guide.h"
#include "tests/dialogs/fixture.h"

namespace vmgv {
namespace {

FakeGrid smallGrid() {
  FakeGrid grid = gridOfColumns(3);
  grid.columns[1].valueList = {{2, "Two"}};
  grid.columns[2].visible = false;
  grid.previewColumn = 3;
  grid.multiSelect = true;
  grid.groups = {{1, 1}};
  grid.selected = {2};
  grid.rows = {{1, {Null{}, Null{}, Null{}}}, {0, {"text", 2, "preview"}}, {0, {1.5, 9, Null{}}}};
  return grid;
}

struct Outcome {
  std::vector<std::string> messages, excelLog;
  bool redraw = false;
};

Outcome exportWith(Fault& gridFault, Fault& excelFault, bool selectedOnly) {
  DialogFixture f(smallGrid());
  f.desktop.objectFactory = [&](const std::string&) -> ObjectRef {
    return makeObject<FaultyObject>(f.excel.application(), excelFault);
  };
  f.control.putRef("Grid", makeObject<FaultyObject>(f.grid.object(), gridFault));
  // A fault of the grid may leave the box for selected rows disabled.
  const auto choose = [&] {
    if (selectedOnly && f.at("chkSelected").enabled()) f.desktop.click(f.at("chkSelected"));
  };
  Steps user(f.desktop, {choose, f.click("cmdOK"), [&] { f.desktop.answer(MessageResult::Ok); }});
  f.control.call("ShowExcel");
  return {f.messages(), f.excel.log, f.grid.redraw};
}

// Calls before the rows are on their way, each passed over: the export then does without what it asked for.
constexpr int kSilentGridCalls = 2;  // PreviewColumn and MultiSelect, for the dialog's options

TEST(ExportFaults, EveryCallOfTheGrid) {
  std::set<std::string> asked;
  for (const bool selectedOnly : {false, true}) {
    Fault none, counting;
    const Outcome whole = exportWith(counting, none, selectedOnly);
    ASSERT_TRUE(whole.messages.empty());
    asked.merge(counting.asked);
    int silent = 0;
    for (int failAt = 1; failAt <= counting.calls; ++failAt) {
      Fault gridFault{failAt}, excelFault;
      const Outcome run = exportWith(gridFault, excelFault, selectedOnly);
      EXPECT_TRUE(run.redraw) << failAt << " " << gridFault.failed;
      if (run.messages.empty()) {
        ++silent;
        EXPECT_EQ(run.excelLog.back(), "Visible") << failAt << " " << gridFault.failed;
        continue;
      }
      EXPECT_EQ(run.messages, std::vector<std::string>{"Error 4711\r\ninjected"})
          << failAt << gridFault.failed;
      EXPECT_EQ(run.excelLog.back(), "Quit") << failAt << " " << gridFault.failed;
    }
    // Besides the two options: the value list's three calls with its value for each record, and the dialog's
    // own last Redraw, which is tried again.
    const int records = selectedOnly ? 1 : 2;
    const int listCalls = selectedOnly ? 4 : 4 + 3;  // the second record's value is not in the list
    EXPECT_GE(silent, kSilentGridCalls + listCalls + 1) << records;
    EXPECT_LE(silent, kSilentGridCalls + listCalls + 2);
  }
  EXPECT_EQ(asked, membersInGuide("ShowExcel"));
}

TEST(ExportFaults, EveryCallOfTheSpreadsheet) {
  Fault counting, none;
  exportWith(none, counting, false);
  for (int failAt = 1; failAt <= counting.calls; ++failAt) {
    Fault gridFault, excelFault{failAt};
    const Outcome run = exportWith(gridFault, excelFault, false);
    EXPECT_TRUE(run.redraw);
    const std::string& member = excelFault.failed;
    if (run.messages.empty()) {
      EXPECT_EQ(run.excelLog.back(), "Visible") << failAt << " " << member;  // a value list's cell
      continue;
    }
    const std::string& message = run.messages.at(0);
    if (failAt == 1) {
      EXPECT_EQ(message, "This option is supported by version 9 or later.");
    } else if (failAt <= 4) {  // Workbooks, Add, ActiveSheet
      EXPECT_EQ(message, "Unable to create new work sheet. \r\n injected") << member;
    } else {
      EXPECT_EQ(message, "Error 4711\r\ninjected") << member;
      EXPECT_EQ(run.excelLog.back(), "Quit");
    }
    EXPECT_EQ(run.messages.size(), 1u) << member;
  }
  EXPECT_GT(counting.calls, 20);
}

}  // namespace
}  // namespace vmgv

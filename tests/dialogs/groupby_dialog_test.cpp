// The group-by dialog: levels and options both ways, and grids that it cannot show whole.
#include "tests/dialogs/fixture.h"

namespace vmgv {
namespace {

using Log = std::vector<std::string>;

// In display order C3, C1, C2, of which C1 is hidden.
FakeGrid groupedGrid() {
  FakeGrid grid = gridOfColumns(3);
  grid.columns[0].position = 2;
  grid.columns[0].visible = false;
  grid.columns[1].position = 3;
  grid.columns[2].position = 1;
  return grid;
}

std::string groupLevels(DialogFixture& f) {
  std::string shown;
  for (int level = 0; level < 3; ++level) {
    const std::string number = std::to_string(level);
    shown += f.at<ComboBox>(("cboGroups(" + number + ")").c_str()).text();
    shown += f.at<OptionButton>(("optOrder" + number + "(0)").c_str()).value() ? "+ " : "- ";
  }
  return shown;
}

TEST(GroupByDialog, CaptionsAndLists) {
  for (const bool greek : {false, true}) {
    DialogFixture f(groupedGrid());
    f.strings.setLanguage(greek ? kGreek : kEnglish);
    f.show("ShowGroups", {[&] {
             EXPECT_EQ(f.desktop.form()->caption(), greek ? "Δημιουργία ομάδων" : "Create Groups");
             EXPECT_EQ(f.at("Frame1").caption(), greek ? "Ομαδοποίηση κατά" : "Group by");
             EXPECT_EQ(f.at("Frame3").caption(), greek ? "Έπειτα κατά" : "Then by");
             EXPECT_EQ(f.at("chkExpand").caption(), greek ? "Σύμπτυξη ομάδων" : "Collape groups");
             EXPECT_EQ(f.at<ComboBox>("cboGroups(2)").items(),
                       (std::vector<std::string>{greek ? "ΟΧΙ" : "NO", "C3", "C1", "C2"}));
             f.desktop.closeWindow();
           }});
    EXPECT_EQ(f.grid.log, Log{});
  }
}

TEST(GroupByDialog, ShowsTheGroupsOrNothing) {
  using Groups = std::vector<std::pair<Value, Value>>;
  const struct {
    Groups groups;
    const char* levels;  // null: no dialog
  } cases[] = {
      {{}, "NO+ NO+ NO+ "},
      {{{2, 1}, {1, -1}, {3, 2}}, "C2+ C1- C3- "},
      {{{1, 1}, {2, 1}, {3, 1}, {1, -1}}, nullptr},
      {{{4, 1}}, nullptr},
  };
  for (const auto& c : cases) {
    DialogFixture f(groupedGrid());
    f.grid.groups = c.groups;
    if (!c.levels) {
      f.show("ShowGroups", {});
      EXPECT_TRUE(f.messages().empty());
      continue;
    }
    f.show("ShowGroups", {[&] { EXPECT_EQ(groupLevels(f), c.levels); }, f.click("cmdCancel")});
  }
  DialogFixture sameCaptions(groupedGrid());
  sameCaptions.grid.columns[1].caption = "C3";
  sameCaptions.grid.groups = {{2, 1}};
  sameCaptions.show("ShowGroups",
                    {[&] { EXPECT_EQ(sameCaptions.at<ComboBox>("cboGroups(0)").listIndex(), 1); },
                     sameCaptions.click("cmdOK")});
  EXPECT_EQ(sameCaptions.grid.groups, (std::vector<std::pair<Value, Value>>{{3, std::int16_t{1}}}));
}

// A level in between stays empty, and one column is chosen twice.
TEST(GroupByDialog, WritesLevelsAndOptions) {
  DialogFixture f(groupedGrid());
  f.grid.settings["GroupFooterStyle"] = 2;
  f.show("ShowGroups",
         {[&] {
            EXPECT_EQ(f.at<CheckBox>("chkTotal").value(), 1);
            EXPECT_EQ(f.at<CheckBox>("chkBox").value(), 1);
            EXPECT_EQ(f.at<CheckBox>("chkExpand").value(), 0);
            EXPECT_EQ(f.at<TextBox>("txtBox").text(), "Drag here");
            f.desktop.choose(f.at("cboGroups(0)"), 3);
            f.desktop.choose(f.at("cboGroups(2)"), 1);
            f.desktop.enter(f.at("txtBox"), "Σύρετε εδώ");
          },
          f.click("optOrder2(1)"), f.click("chkExpand"), f.click("chkTotal"), f.click("cmdOK")});
  EXPECT_EQ(f.grid.log, (Log{"Redraw=False", "Groups.Clear", "Groups.Add 2,1", "Groups.Add 3,-1",
                             "GroupByBoxVisible=Boolean:True", "GroupByBoxInfoText=String:Σύρετε εδώ",
                             "Refresh", "GroupFooterStyle=Integer:0", "RefreshGroups True", "Redraw=True"}));
}

TEST(GroupByDialog, WithoutTheBoxItsPromptStays) {
  DialogFixture f(groupedGrid());
  f.grid.groups = {{1, 1}};
  f.show("ShowGroups", {f.click("chkBox"), [&] { EXPECT_FALSE(f.at("txtBox").enabled()); }, f.click("chkBox"),
                        [&] { EXPECT_TRUE(f.at("txtBox").enabled()); }, f.click("chkBox"),
                        f.click("chkTotal"), f.click("cmdOK")});
  EXPECT_EQ(f.grid.log,
            (Log{"Redraw=False", "Groups.Clear", "Groups.Add 1,1", "GroupByBoxVisible=Boolean:False",
                 "GroupFooterStyle=Integer:2", "RefreshGroups False", "Redraw=True"}));
  f.grid.log.clear();
  f.show("ShowGroups", {[&] {
                          EXPECT_EQ(f.at<CheckBox>("chkBox").value(), 0);
                          EXPECT_FALSE(f.at("txtBox").enabled());
                        },
                        f.click("cmdHelp"), f.click("cmdCancel")});
  EXPECT_EQ(f.desktop.helpCalls().at(0).topic, "gridViewsGrouping.htm");
  EXPECT_EQ(f.grid.log, Log{});
}

}  // namespace
}  // namespace vmgv

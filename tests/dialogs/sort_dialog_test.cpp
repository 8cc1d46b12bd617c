// The sort dialog: what it shows of the grid, what it writes back, what it passes over in silence.
#include "tests/dialogs/fixture.h"

namespace vmgv {
namespace {

using Log = std::vector<std::string>;

std::string levels(DialogFixture& f) {
  std::string shown;
  for (int level = 0; level < 4; ++level) {
    const std::string number = std::to_string(level);
    auto& list = f.at<ComboBox>(("cboSort(" + number + ")").c_str());
    const bool ascending = f.at<OptionButton>(("optOrder" + number + "(0)").c_str()).value();
    const bool descending = f.at<OptionButton>(("optOrder" + number + "(1)").c_str()).value();
    EXPECT_NE(ascending, descending);
    shown += std::to_string(list.listIndex()) + (ascending ? "+" : "-");
  }
  return shown;
}

TEST(SortDialog, CaptionsFontsAndLists) {
  for (const LanguageId language : {kEnglish, kGreek}) {
    DialogFixture f(gridOfColumns(3));
    f.grid.columns[1].visible = false;  // hidden columns are offered too
    f.strings.setLanguage(language);
    const bool greek = language == kGreek;
    f.show("ShowSort", {[&] {
             EXPECT_EQ(f.desktop.form()->caption(), greek ? "Ταξινόμηση" : "Order");
             EXPECT_EQ(f.at("Frame3").caption(), greek ? "Ταξινόμηση κατά..." : "Order by...");
             EXPECT_EQ(f.at("frame4").caption(), greek ? "Έπειτα κατά" : "Then by");
             EXPECT_EQ(f.at("optOrder3(1)").caption(), greek ? "Φθίνουσα σειρά" : "Descending");
             EXPECT_EQ(f.at("cmdOK").caption(), "OK");
             EXPECT_EQ(f.at("cmdCancel").caption(), greek ? "Άκυρο" : "Cancel");
             EXPECT_EQ(f.at<ComboBox>("cboSort(3)").items(),
                       (std::vector<std::string>{greek ? "ΟΧΙ" : "NO", "C1", "C2", "C3"}));
             EXPECT_EQ(f.at("cboSort(3)").font().charset, greek ? 161 : 0);
             EXPECT_EQ(levels(f), "0+0+0+0+");
             f.desktop.closeWindow();
           }});
    EXPECT_EQ(f.grid.log, Log{});
  }
}

TEST(SortDialog, ShowsTheFirstFourKeysAndWritesThemBack) {
  DialogFixture f(gridOfColumns(5));
  f.grid.sortKeys = {{5, std::int16_t{1}}, {2, std::int16_t{-1}}, {1, 0}, {3, 1.0}, {4, 1}};
  f.show("ShowSort", {[&] {
           EXPECT_EQ(levels(f), "5+2-1-3+");  // any order but 1 is descending
           f.desktop.click(f.at("cmdOK"));
         }});
  EXPECT_EQ(f.grid.log, (Log{"Redraw=False", "SortKeys.Clear", "SortKeys.Add 5,1", "SortKeys.Add 2,-1",
                             "SortKeys.Add 1,-1", "SortKeys.Add 3,1", "Redraw=True"}));
}

TEST(SortDialog, AKeyBeyondTheColumnsLeavesItsLevelEmpty) {
  DialogFixture f(gridOfColumns(2));
  f.grid.sortKeys = {{3, std::int16_t{-1}}, {2, std::int16_t{1}}, {-7, 1}, {-1, 1}};
  f.show("ShowSort", {[&] {
           EXPECT_EQ(levels(f), "0-2+0+-1+");
           f.desktop.closeWindow();
         }});
}

// The first level stays empty, and one column is chosen twice.
TEST(SortDialog, LevelsAreSavedInOrderAndARefusedOneIsLeftOut) {
  DialogFixture f(gridOfColumns(3));
  f.show("ShowSort", {[&] {
                        f.desktop.choose(f.at("cboSort(1)"), 2);
                        f.desktop.choose(f.at("cboSort(2)"), 2);
                        f.desktop.choose(f.at("cboSort(3)"), 3);
                      },
                      f.click("optOrder3(1)"), f.press("cboSort(3)", Key::Return)});  // Enter is OK
  EXPECT_EQ(f.grid.log, (Log{"Redraw=False", "SortKeys.Clear", "SortKeys.Add 2,1", "SortKeys.Add 2,1",
                             "SortKeys.Add 3,-1", "Redraw=True"}));
  EXPECT_EQ(f.grid.sortKeys.size(), 2u);
  EXPECT_TRUE(f.messages().empty());
}

TEST(SortDialog, AGridWithoutColumnsEndsWithoutKeys) {
  DialogFixture f;
  f.grid.sortKeys = {{1, 1}};
  f.show("ShowSort", {[&] {
           EXPECT_EQ(f.at<ComboBox>("cboSort(0)").items().size(), 0u);
           f.desktop.click(f.at("cmdOK"));
         }});
  EXPECT_EQ(f.grid.log, (Log{"Redraw=False", "SortKeys.Clear", "SortKeys.Add -1,1", "SortKeys.Add -1,1",
                             "SortKeys.Add -1,1", "SortKeys.Add -1,1", "Redraw=True"}));
  EXPECT_TRUE(f.grid.sortKeys.empty());
}

TEST(SortDialog, CancelEscAndTheTitleBarWriteNothing) {
  DialogFixture f(gridOfColumns(3));
  f.grid.sortKeys = {{1, 1}};
  const auto change = [&] { f.desktop.choose(f.at("cboSort(0)"), 2); };
  f.show("ShowSort", {change, f.click("cmdCancel")});
  f.show("ShowSort", {change, f.press("cboSort(0)", Key::Escape)});
  f.show("ShowSort", {change, f.press("cmdOK", Key::Escape)});
  f.show("ShowSort", {change, [&] { f.desktop.closeWindow(); }});
  EXPECT_EQ(f.grid.log, Log{});
}

TEST(SortDialog, HelpOpensItsTopicAndEnterOnAButtonIsThatButton) {
  DialogFixture f(gridOfColumns(1));
  f.show("ShowSort", {f.press("cmdHelp", Key::Return), f.press("cmdCancel", Key::Return)});
  ASSERT_EQ(f.desktop.helpCalls().size(), 1u);
  EXPECT_EQ(f.desktop.helpCalls()[0].topic, "gridViewsSorting.htm");
  EXPECT_EQ(f.grid.log, Log{});
}

// A service of another maker may fail; the built-in text for "no column" then stands in.
TEST(SortDialog, WorksWithoutTexts) {
  class FailingService final : public EmbeddedStringService {
    std::string GetString(std::string_view, std::string_view) const override {
      throw Error(ErrorNumber::InvalidCall);
    }
  } failing;
  DialogFixture f(gridOfColumns(1));
  Application application(f.desktop, f.desktop, failing);
  f.control = makeObject<vmgrEdit>(application);
  f.control.putRef("Grid", f.grid.object());
  f.show("ShowSort", {[&] {
           EXPECT_EQ(f.desktop.form()->caption(), "");
           EXPECT_EQ(f.at<ComboBox>("cboSort(0)").items()[0], "ΟΧΙ");
           f.desktop.choose(f.at("cboSort(0)"), 1);
           f.desktop.click(f.at("cmdOK"));
         }});
  EXPECT_EQ(f.grid.sortKeys.size(), 1u);
}

}  // namespace
}  // namespace vmgv

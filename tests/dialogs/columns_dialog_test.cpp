// The column chooser: its two lists, what moves between them, and what OK writes.
#include "tests/dialogs/fixture.h"

namespace vmgv {
namespace {

using Log = std::vector<std::string>;

// "C2* C1 | C3": hidden and shown columns, the selected ones starred.
std::string lists(DialogFixture& f) {
  std::string shown;
  for (const char* name : {"lsFields", "lsGrid"}) {
    const auto& list = f.at<ListBox>(name);
    for (int i = 0; i < list.listCount(); ++i) {
      shown += list.items()[static_cast<std::size_t>(i)] + (i == list.listIndex() ? "* " : " ");
    }
    if (&list == &f.at("lsFields")) shown += "|";
    if (&list == &f.at("lsFields") && f.at<ListBox>("lsGrid").listCount() > 0) shown += " ";
  }
  return shown;
}

// In display order C4 C3 C2 C1, of which C1 and C3 are hidden.
FakeGrid mixedGrid() {
  FakeGrid grid = gridOfColumns(4);
  for (int i = 0; i < 4; ++i) grid.columns[static_cast<std::size_t>(i)].position = 4 - i;
  grid.columns[0].visible = grid.columns[2].visible = false;
  return grid;
}

TEST(ColumnsDialog, CaptionsInBothLanguages) {
  for (const bool greek : {false, true}) {
    DialogFixture f(mixedGrid());
    f.strings.setLanguage(greek ? kGreek : kEnglish);
    f.show("ShowItems", {[&] {
             EXPECT_EQ(f.desktop.form()->caption(), greek ? "Εμφάνιση δεδομένων" : "Show data");
             EXPECT_EQ(f.at("Label2").caption(), greek ? "Διαθέσιμες στήλες" : "Available columns");
             EXPECT_EQ(f.at("Label3").caption(), greek ? "Εμφάνιση" : "Show");
             EXPECT_EQ(f.at("cmdmvAll").caption(), ">>");
             EXPECT_EQ(f.at("cmdUp").caption(), "");
             EXPECT_EQ(f.at("cmdUp").accessibleName(), greek ? "Μετακίνηση επάνω" : "Move up");
             EXPECT_EQ(f.at("lsFields").rect().width, f.at("lsGrid").rect().width);
             EXPECT_EQ(f.at("lsFields").rect().height, f.at("lsGrid").rect().height);
             f.desktop.closeWindow();
           }});
  }
}

TEST(ColumnsDialog, EveryWayToMoveAColumn) {
  using Act = std::function<void(DialogFixture&)>;
  const auto click = [](const char* name) {
    return [name](DialogFixture& f) { f.desktop.click(f.at(name)); };
  };
  const auto twice = [](const char* name, int entry) {
    return [name, entry](DialogFixture& f) { f.desktop.doubleClick(f.at(name), entry); };
  };
  const auto choose = [](const char* name, int entry) {
    return [name, entry](DialogFixture& f) { f.desktop.choose(f.at(name), entry); };
  };
  const struct {
    std::vector<Act> acts;
    const char* lists;
  } cases[] = {
      {{}, "C3 C1 | C4 C2 "},
      {{click("cmdmvOne")}, "C1 | C4 C2 C3 "},
      {{choose("lsFields", 1), click("cmdmvOne")}, "C3 | C4 C2 C1 "},
      {{choose("lsFields", 1), click("cmdmvAll")}, "| C4 C2 C3 C1 "},
      {{click("cmdmvAll"), click("cmdmvOne"), click("cmdmvAll")}, "| C4 C2 C3 C1 "},
      {{click("cmdRmOne")}, "C3 C1 C4 | C2 "},
      {{choose("lsGrid", 1), click("cmdrmAll")}, "C3 C1 C4 C2 |"},
      {{choose("lsGrid", 1), click("cmdRmOne"), click("cmdRmOne"), click("cmdRmOne")}, "C3 C1 C2 C4 |"},
      {{twice("lsFields", 1), twice("lsGrid", 0)}, "C3 C4 | C2 C1 "},
      {{click("cmdUp"), click("cmdDown")}, "C3 C1 | C4 C2 "},
      {{choose("lsGrid", 1), click("cmdUp")}, "C3 C1 | C2* C4 "},
      {{choose("lsGrid", 1), click("cmdUp"), click("cmdUp")}, "C3 C1 | C2* C4 "},
      {{choose("lsGrid", 0), click("cmdDown"), click("cmdDown")}, "C3 C1 | C2 C4* "},
  };
  for (const auto& c : cases) {
    DialogFixture f(mixedGrid());
    std::vector<Steps::Step> steps;
    for (const Act& act : c.acts) steps.push_back([&f, act] { act(f); });
    steps.push_back([&] {
      EXPECT_EQ(lists(f), c.lists) << &c - cases;
      f.desktop.click(f.at("cmdCancel"));
    });
    f.show("ShowItems", std::move(steps));
    EXPECT_EQ(f.grid.log, Log{});
  }
}

// Columns of one caption are told apart by their index.
TEST(ColumnsDialog, OkWritesHiddenColumnsThenShownOnesInTheirOrder) {
  DialogFixture f(mixedGrid());
  for (FakeColumn& column : f.grid.columns) column.caption = "same";
  f.show("ShowItems",
         {[&] { f.desktop.doubleClick(f.at("lsGrid"), 0); },
          [&] { f.desktop.doubleClick(f.at("lsFields"), 1); }, [&] { f.desktop.choose(f.at("lsGrid"), 1); },
          f.click("cmdUp"), f.press("lsGrid", Key::Return)});  // Enter is OK
  EXPECT_EQ(f.grid.log, (Log{"Redraw=False", "Columns(3).Visible=False", "Columns(4).Visible=False",
                             "Columns(1).Visible=True", "Columns(1).ColPosition=1", "Columns(2).Visible=True",
                             "Columns(2).ColPosition=2", "Redraw=True"}));
}

TEST(ColumnsDialog, OkWithoutAColumnIsRefused) {
  DialogFixture f(mixedGrid());
  f.show("ShowItems",
         {f.click("cmdrmAll"), f.click("cmdOK"),
          [&] {
            EXPECT_EQ(f.desktop.box()->text, "You have to select at least one column.");
            EXPECT_EQ(f.desktop.box()->title, "Columns");
            EXPECT_EQ(f.desktop.box()->style, MessageStyle::Information);
            f.desktop.answer(MessageResult::Ok);
          },
          [&] { EXPECT_EQ(lists(f), "C3 C1 C4 C2 |"); }, f.click("cmdHelp"), f.press("cmdOK", Key::Escape)});
  EXPECT_EQ(f.grid.log, Log{});
  EXPECT_EQ(f.desktop.helpCalls().at(0).topic, "gridViewsColumns.htm");
}

TEST(ColumnsDialog, AGridWithoutColumnsShowsNothing) {
  DialogFixture f;
  f.show("ShowItems", {});
  EXPECT_EQ(f.grid.log, Log{});
}

}  // namespace
}  // namespace vmgv

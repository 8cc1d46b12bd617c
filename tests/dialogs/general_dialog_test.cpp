// General display settings: the preview column by index and by name, its lines, and the two boxes.
#include "tests/dialogs/fixture.h"

namespace vmgv {
namespace {

using Log = std::vector<std::string>;

FakeGrid gridWithFields() {
  FakeGrid grid = gridOfColumns(3);
  for (std::size_t i = 0; i < 3; ++i) grid.columns[i].dataField = "field" + std::to_string(i + 1);
  return grid;
}

TEST(GeneralDialog, SelectsThePreviewColumnByNameThenByIndex) {
  const struct {
    Value previewColumn;
    int listIndex;
  } cases[] = {{Null{}, 0},    {"", 0},         {Value(), 0}, {0, 0},   {2, 2},  {"field3", 3},
               {"Field3", -1}, {"unknown", -1}, {4, -1},      {"2", 2}, {-1, -1}};
  for (const auto& c : cases) {
    DialogFixture f(gridWithFields());
    f.grid.previewColumn = c.previewColumn;
    f.show("ShowGeneral", {[&] {
             EXPECT_EQ(f.at<ComboBox>("cboPreviewLine").listIndex(), c.listIndex) << &c - cases;
             f.desktop.closeWindow();
           }});
  }
}

TEST(GeneralDialog, CaptionsAndBoxesInBothLanguages) {
  for (const bool greek : {false, true}) {
    DialogFixture f(gridWithFields());
    f.strings.setLanguage(greek ? kGreek : kEnglish);
    f.grid.settings["UseEvenOddColor"] = greek ? Value(Null{}) : Value(true);
    f.grid.settings["ColumnAutoResize"] = greek;
    f.grid.settings["PreviewRowLines"] = 7;
    f.show("ShowGeneral", {[&] {
             EXPECT_EQ(f.desktop.form()->caption(), greek ? "Διάφορες ρυθμίσεις" : "Miscellaneous");
             EXPECT_EQ(f.at("Frame1").caption(), greek ? "Στήλη προεπισκόπησης" : "Preview Colummn");
             EXPECT_EQ(f.at<ComboBox>("cboPreviewLine").items(),
                       (Log{greek ? "<καμία>" : "<none>", "C1", "C2", "C3"}));
             EXPECT_EQ(f.at<CheckBox>("chkAltColors").value(), greek ? 0 : 1);
             EXPECT_EQ(f.at<CheckBox>("chkExpandLastCol").value(), greek ? 1 : 0);
             EXPECT_EQ(f.at<TextBox>("txtPreviewRows").text(), "1");
             f.desktop.click(f.at("cmdHelp"));
             f.desktop.click(f.at("cmdCancel"));
           }});
    EXPECT_EQ(f.desktop.helpCalls().at(0).topic, "gridViewsGeneral.htm");
    EXPECT_EQ(f.grid.log, Log{});
  }
}

TEST(GeneralDialog, TheOldPreviewColumnIsShownAgain) {
  const struct {
    Value before;
    int choice;
    Log preview;
  } cases[] = {
      {Null{}, 0, {}},
      {Null{}, 2, {"PreviewColumn=Integer:2", "Columns(2).Visible=False"}},
      {3, 2, {"Columns(3).Visible=True", "PreviewColumn=Integer:2", "Columns(2).Visible=False"}},
      {3, 3, {"Columns(3).Visible=True", "PreviewColumn=Integer:3", "Columns(3).Visible=False"}},
      {3, 0, {"Columns(3).Visible=True", "PreviewColumn=Null"}},
      {"unknown", -1, {"PreviewColumn=Null"}},
  };
  for (const auto& c : cases) {
    DialogFixture f(gridWithFields());
    f.grid.previewColumn = c.before;
    f.show("ShowGeneral", {[&] {
                             if (c.choice >= 0) f.desktop.choose(f.at("cboPreviewLine"), c.choice);
                           },
                           f.click("chkAltColors"), f.click("cmdOK")});
    Log expected{"Redraw=False"};
    expected.insert(expected.end(), c.preview.begin(), c.preview.end());
    for (const char* rest : {"PreviewRowLines=String:1", "UseEvenOddColor=Boolean:True",
                             "ColumnAutoResize=Boolean:False", "Redraw=True"}) {
      expected.emplace_back(rest);
    }
    EXPECT_EQ(f.grid.log, expected) << &c - cases;
    EXPECT_TRUE(f.messages().empty());
  }
}

TEST(GeneralDialog, OnlyDigitsAreTypedAndTheirRangeIsTold) {
  const struct {
    const char* typed;
    const char* text;
    bool told;
  } cases[] = {{"20", "20", false}, {"", "1", false},
               {"0", "0", true},    {"2-1 a", "21", true},
               {"x", "1", false},   {"99999999999999999999", "99999999999999999999", true}};
  for (const auto& c : cases) {
    DialogFixture f(gridWithFields());
    std::vector<Steps::Step> steps{[&] { f.desktop.enter(f.at("txtPreviewRows"), c.typed); }};
    if (c.told) {
      steps.push_back([&] {
        EXPECT_EQ(f.desktop.box()->text, "Enter a value between 1 and 20");
        EXPECT_EQ(f.desktop.box()->style, MessageStyle::Information);
        f.desktop.answer(MessageResult::Ok);
      });
    }
    steps.push_back([&] {
      EXPECT_EQ(f.at<TextBox>("txtPreviewRows").text(), c.text);
      EXPECT_NE(f.desktop.focused(), &f.at("txtPreviewRows"));
    });
    steps.push_back(f.click("cmdOK"));
    f.show("ShowGeneral", std::move(steps));
    EXPECT_EQ(f.messages().size(), c.told ? 1u : 0u) << c.typed;
    EXPECT_EQ(f.grid.settings["PreviewRowLines"], Value(c.text));
  }
}

// The message that comes as the field is left does not swallow the click that left it.
TEST(GeneralDialog, AClickOnOkTellsTheRangeAndStillWrites) {
  DialogFixture f(gridWithFields());
  const auto key = [&](Key pressed) {
    return [&f, pressed] { f.desktop.press(f.at("txtPreviewRows"), pressed, 0); };
  };
  const auto nine = static_cast<Key>('9');
  f.show("ShowGeneral", {key(nine), key(nine), key(Key::Backspace), f.click("cmdOK"),
                         [&] { f.desktop.answer(MessageResult::Ok); }});
  const Value written = f.grid.settings["PreviewRowLines"];
  EXPECT_TRUE(written == Value("99") || written == Value("199"))
      << toText(written) << ": some desktops select a field's text";
}

}  // namespace
}  // namespace vmgv

// The format conditions editor: what it shows of a rule, what each edit writes, and its keys.
#include "support/forms/property_editor.h"
#include "tests/dialogs/fixture.h"

namespace vmgv {
namespace {

using Log = std::vector<std::string>;
constexpr auto kA = static_cast<Key>('A');

std::string valueOf(DialogFixture& f, const char* row) {
  return f.at<PropertyEditor>("smuProperties").row(std::string_view(row)).value();
}

// Of all rows: swatches and values of the colours, toggles from bold to strikethrough.
std::string shown(DialogFixture& f) {
  std::string text;
  for (const char* row : {"column", "operator", "value1", "value2", "font", "fontsize"}) {
    text += valueOf(f, row) + '|';
  }
  text += f.at("smuProperties.value2").enabled() ? "on" : "off";
  for (const char* row : {"smuProperties.backcolor", "smuProperties.forecolor"}) {
    const auto& field = f.at<ColourField>(row);
    const bool empty = field.swatch() == colourOf(SystemColour::Window);
    text += '|' + (empty ? std::string("empty") : std::to_string(field.swatch())) + ',' +
            std::to_string(field.value());
  }
  for (const char* toggle : {"smuFont.1", "smuFont.2", "smuFont.3", "smuFont.4"}) {
    text += ' ' + std::to_string(static_cast<int>(f.at<ToolButton>(toggle).state()));
  }
  return text;
}

FakeGrid gridWithRules(int count) {
  FakeGrid grid = gridOfColumns(3);
  grid.columns[2].caption = "Net - gross";
  for (int i = 1; i <= count; ++i) grid.rules.push_back({"Condition " + std::to_string(i)});
  return grid;
}

struct ConditionsDialog : testing::Test {
  DialogFixture f{gridWithRules(3)};

  Steps::Step enter(const char* row, const char* text) {
    return [this, row, text] { f.desktop.enter(f.at(row), text); };
  }
  Steps::Step choose(const char* control, int entry) {
    return [this, control, entry] { f.desktop.choose(f.at(control), entry); };
  }
  Steps::Step answer(MessageResult result) {
    return [this, result] { f.desktop.answer(result); };
  }
  Steps::Step pick(std::optional<Colour> colour) {
    return [this, colour] { f.desktop.chooseColour(colour); };
  }
  Steps::Step list(int selected, const Log& entries) {
    return [this, selected, entries] {
      EXPECT_EQ(f.at<ListBox>("smuList").items(), entries);
      EXPECT_EQ(f.at<ListBox>("smuList").listIndex(), selected);
      EXPECT_EQ(f.at("smuProperties").enabled(), !entries.empty());
    };
  }
};

TEST_F(ConditionsDialog, WithoutRulesThereIsNothingToEditOrDelete) {
  f.grid.rules.clear();
  for (const bool greek : {false, true}) {
    f.strings.setLanguage(greek ? kGreek : kEnglish);
    f.show("ShowFormat",
           {[&] {
              EXPECT_EQ(f.desktop.form()->caption(), greek ? "Συνθήκες εμφάνισης" : "View Conditions");
              EXPECT_EQ(f.at("smuProperties").caption(), greek ? "Ιδιότητες" : "Properties");
              EXPECT_EQ(f.at("smuProperties.value1").caption(), greek ? "Τιμή 1:" : "Value 1:");
              EXPECT_EQ(f.at("smuToolbar.add").toolTip(), greek ? "Προσθήκη (Ctrl+A)" : "Add (Ctr+A)");
              EXPECT_EQ(f.at("smuFont.4").accessibleName(), greek ? "Διακριτή διαγραφή" : "Delete Distinct");
              const auto& editor = f.at<PropertyEditor>("smuProperties");
              EXPECT_EQ(editor.row("operator").entries()[9],
                        greek ? "9 - Δεν περιέχει" : "9 - Does not contain");
              EXPECT_EQ(editor.row("column").entries(), (Log{"1 - C1", "2 - C2", "3 - Net - gross"}));
              EXPECT_EQ(editor.row("font").entries()[0], "");
              EXPECT_GT(editor.row("font").entries().size(), 2u);
            },
            list(-1, {}), f.click("smuToolbar.delete"), f.press("smuList", Key::Delete), f.click("cmdOk")});
  }
  EXPECT_EQ(f.messages(), Log{});
}

TEST_F(ConditionsDialog, ShowsWhatARuleSetsAndNothingElse) {
  f.grid.rules[1].members = {
      {"ColIndex", 3}, {"Operator", std::int16_t{6}}, {"Value1", 2.5}, {"Value2", Null{}}};
  f.grid.rules[1].style = {{"BackColor", 0x0000FF}, {"ForeColor", 0x00FF00}, {"FontName", "No such font"},
                           {"FontSize", 12.0},      {"FontBold", true},      {"FontItalic", false}};
  const std::string plain = "1 - C1|0 - equal to|||||off|empty,0|empty,0 2 2 2 2";
  f.show("ShowFormat", {[&] { EXPECT_EQ(shown(f), plain); }, choose("smuList", 1),
                        [&] {
                          EXPECT_EQ(f.at<ColourField>("smuProperties.forecolor").swatchText(), "#00FF00");
                          EXPECT_EQ(shown(f),
                                    "3 - Net - gross|6 - Between interval|2.5||No such font|12|on|"
                                    "255,255|65280,16777215 -1 0 2 2");
                        },
                        choose("smuList", 2), [&] { EXPECT_EQ(shown(f), plain); }, f.click("cmdOk")});
  EXPECT_EQ(f.grid.log, Log{});
}

TEST_F(ConditionsDialog, EachEditIsWrittenAtOnce) {
  f.grid.rules[0].style = {{"FontName", "Courier"}, {"FontSize", 12.0}};
  const struct {
    std::vector<Steps::Step> acts;
    Log log;
  } cases[] = {
      {{choose("smuProperties.column", 2)}, {"Condition 1.ColIndex=Long:3"}},
      {{choose("smuProperties.operator", 7), enter("smuProperties.value2", "9")},
       {"Condition 1.Operator=Integer:7", "Condition 1.Value2=String:9"}},
      {{choose("smuProperties.operator", 8), [&] { EXPECT_FALSE(f.at("smuProperties.value2").enabled()); }},
       {"Condition 1.Operator=Integer:8"}},
      {{enter("smuProperties.value1", "αβ-1"), enter("smuProperties.value1", "αβ-1")},
       {"Condition 1.Value1=String:αβ-1"}},
      {{enter("smuProperties.value1", "")}, {"Condition 1.Value1=String:"}},
      {{choose("smuProperties.font", 0)}, {"Condition 1.FontName=String:Arial"}},
      {{enter("smuProperties.fontsize", "")}, {"Condition 1.FontSize=Double:9"}},
      {{enter("smuProperties.fontsize", "8,5")}, {"Condition 1.FontSize=Double:8.5"}},
      {{enter("smuProperties.fontsize", "24")}, {"Condition 1.FontSize=Double:24"}},
      {{f.click("smuFont.2"), f.click("smuFont.2"), f.click("smuFont.4")},
       {"Condition 1.FontItalic=Boolean:True", "Condition 1.FontItalic=Boolean:False",
        "Condition 1.FontStrikethru=Boolean:True"}},
      {{f.click("smuProperties.backcolor"), pick(0x0A0B0C)}, {"Condition 1.BackColor=Long:658188"}},
      {{f.click("smuProperties.forecolor"), pick(std::nullopt)}, {}},
      {{f.press("smuProperties.forecolor", Key::F4), pick(0x0000FF)}, {"Condition 1.ForeColor=Long:255"}},
  };
  for (const auto& c : cases) {
    f.grid.log.clear();
    auto steps = c.acts;
    steps.push_back(f.click("cmdOk"));
    f.show("ShowFormat", std::move(steps));
    EXPECT_EQ(f.grid.log, c.log);
  }
}

TEST_F(ConditionsDialog, AFontSizeOutsideItsRangeIsRefusedAndComesBack) {
  for (const char* text : {"0", "25", "abc", "NaN", "1e1000"}) {
    f.show("ShowFormat", {enter("smuProperties.fontsize", text),
                          [&] {
                            EXPECT_EQ(f.desktop.box()->text, "Enter a value between 1 and 24!");
                            EXPECT_EQ(f.desktop.box()->title, "View Conditions");
                            EXPECT_EQ(f.desktop.box()->style, MessageStyle::Critical);
                            f.desktop.answer(MessageResult::Ok);
                          },
                          [&] {
                            EXPECT_EQ(f.desktop.focused(), &f.at("smuProperties.fontsize")) << text;
                            EXPECT_EQ(f.at<TextBox>("smuProperties.fontsize").text(), text);
                          },
                          f.press("smuProperties.fontsize", Key::Escape), f.click("cmdOk")});
  }
  EXPECT_EQ(f.grid.log, Log{});
}

TEST_F(ConditionsDialog, KeysWalkTakeAndDrop) {
  const struct {
    const char* in;
    Key key;
    const char* reached;  // "": the dialog is closed
  } walks[] = {{"smuProperties.column", Key::Up, "smuProperties.column"},
               {"smuProperties.column", Key::Down, "smuProperties.operator"},
               {"smuProperties.value1", Key::Down, "smuProperties.backcolor"},  // over what is disabled
               {"smuProperties.backcolor", Key::Up, "smuProperties.value1"},
               {"smuProperties.fontsize", Key::Down, "smuFont.1"},
               {"smuFont.1", Key::Left, "smuFont.4"},
               {"smuFont.4", Key::Up, "smuProperties.fontsize"},
               {"smuToolbar.add", Key::Right, "smuToolbar.delete"},
               {"smuFont.1", Key::Escape, ""},
               {"smuProperties.value1", Key::Return, ""}};
  for (const auto& walk : walks) {
    std::vector<Steps::Step> steps{f.press(walk.in, walk.key)};
    if (*walk.reached) {
      steps.push_back([&] { EXPECT_EQ(f.desktop.focused()->address(), walk.reached) << walk.in; });
      steps.push_back(f.click("cmdOk"));
    }
    f.show("ShowFormat", std::move(steps));
  }
  EXPECT_EQ(f.grid.log, Log{});

  const auto type = f.press("smuProperties.value1", kA);
  f.show("ShowFormat",
         {type, f.press("smuProperties.value1", Key::Escape),
          [&] { EXPECT_EQ(f.at<TextBox>("smuProperties.value1").text(), ""); }, type,
          f.press("smuProperties.value1", Key::Return),
          [&] { EXPECT_EQ(f.grid.log, Log{"Condition 1.Value1=String:a"}); },
          // With its text selected, typing replaces it; closing takes what was typed.
          f.press("smuProperties.value1", Key::F2), f.press("smuProperties.value1", static_cast<Key>('B')),
          [&] { f.desktop.closeWindow(); }});
  EXPECT_EQ(f.grid.log.back(), "Condition 1.Value1=String:b");
}

TEST_F(ConditionsDialog, AddAsksForAName) {
  const auto confirm = f.click("cmdOK");
  const auto addByKey = [&] { f.desktop.press(f.at("smuList"), kA, kControl); };
  f.show("ShowFormat",
         {f.click("smuToolbar.add"),
          [&] {
            EXPECT_EQ(f.desktop.form()->caption(), "View Conditions");
            EXPECT_EQ(f.at("lbPrompt").caption(), "Enter condition name");
            EXPECT_EQ(f.at<TextBox>("txtAnswer").text(), "Condition 4");
            f.desktop.click(f.at("cmdCancel"));
          },
          addByKey, enter("txtAnswer", ""), confirm, addByKey, enter("txtAnswer", "«Α» \"b\" '%1'"), confirm,
          [&] { EXPECT_EQ(shown(f), "1 - C1|0 - equal to|||||off|empty,0|empty,0 2 2 2 2"); },
          // A name that is taken: the grid says so, and the list stays as it is.
          f.click("smuToolbar.add"), enter("txtAnswer", "Condition 2"), confirm, answer(MessageResult::Ok),
          list(3, {"Condition 1", "Condition 2", "Condition 3", "«Α» \"b\" '%1'"}),
          enter("smuProperties.value1", "1"), f.click("cmdOk")});
  EXPECT_EQ(f.grid.log, (Log{"Add Long:1 - - - String:«Α» \"b\" '%1'", "«Α» \"b\" '%1'.Value1=String:1"}));
  EXPECT_EQ(f.messages(), Log{"Condition 2 is there already"});
}

TEST_F(ConditionsDialog, DeleteSelectsTheNeighbour) {
  const auto yes = answer(MessageResult::Yes);
  f.show("ShowFormat",
         {f.press("smuList", Key::Delete), answer(MessageResult::No),
          list(0, {"Condition 1", "Condition 2", "Condition 3"}), f.press("smuList", Key::Delete), yes,
          list(0, {"Condition 2", "Condition 3"}), choose("smuList", 1), f.click("smuToolbar.delete"), yes,
          list(0, {"Condition 2"}), [&] { EXPECT_EQ(valueOf(f, "column"), "1 - C1"); },
          f.click("smuToolbar.delete"), yes, list(-1, {}), f.click("cmdOk")});
  EXPECT_EQ(f.grid.log, (Log{"Remove Condition 1", "Remove Condition 3", "Remove Condition 2"}));
  EXPECT_EQ(f.messages(), Log(4, "Are you sure ?"));
}

TEST_F(ConditionsDialog, WhatTheGridLacksIsTold) {
  f.grid.rules[1].members["ColIndex"] = 9;                 // its column has gone
  f.grid.rules[2].members["Operator"] = std::int16_t{12};  // a host's own
  f.grid.rules.push_back({"two\nlines"});
  f.grid.rules.push_back({"two\nlines"});
  f.show("ShowFormat",
         {choose("smuList", 1), answer(MessageResult::Ok),
          [&] { EXPECT_EQ(shown(f), "||||||off|empty,0|empty,0 2 2 2 2") << "nothing of the rule before"; },
          choose("smuProperties.column", 1), choose("smuList", 2), answer(MessageResult::Ok),
          choose("smuList", 4), enter("smuProperties.value1", "7"),
          [&] { f.grid.rules.clear(); },  // the host, meanwhile
          enter("smuProperties.value1", "8"), answer(MessageResult::Ok), f.press("smuList", Key::Delete),
          answer(MessageResult::Yes), answer(MessageResult::Ok), [&] { f.desktop.closeWindow(); }});
  EXPECT_EQ(f.grid.log, (Log{"Condition 2.ColIndex=Long:2", "two\nlines.Value1=String:7"}));
  EXPECT_EQ(f.messages().size(), 5u);
}

TEST_F(ConditionsDialog, TheSelectedEntryShowsWhereTheFocusIs) {
  const auto colours = [&](SystemColour back, SystemColour fore) {
    const auto& found = f.at<ListBox>("smuList").selectedColours();
    EXPECT_TRUE(found == (ListBox::Colours{colourOf(back), colourOf(fore)})) << static_cast<int>(back);
  };
  f.show("ShowFormat", {[&] {
                          f.desktop.focus(f.at("smuList"));
                          colours(SystemColour::Highlight, SystemColour::HighlightText);
                        },
                        [&] { f.desktop.focus(f.at("cmdHelp")); },
                        [&] { colours(SystemColour::ButtonFace, SystemColour::ButtonText); },
                        f.click("cmdHelp"), f.click("cmdOk")});
  EXPECT_EQ(f.desktop.helpCalls().at(0).topic, "gridViewsConditions.htm");
}

TEST_F(ConditionsDialog, ManyRulesAreShownAndDeleted) {
  constexpr int kMany = 10'000;
  f.grid = gridWithRules(kMany);
  f.show("ShowFormat",
         {[&] { f.at<ListBox>("smuList").setListIndex(kMany - 1); }, f.click("smuToolbar.delete"),
          answer(MessageResult::Yes), [&] { EXPECT_EQ(f.at<ListBox>("smuList").listIndex(), kMany - 2); },
          f.click("cmdOk")});
  EXPECT_EQ(f.grid.log, Log{"Remove Condition 10000"});
}

}  // namespace
}  // namespace vmgv

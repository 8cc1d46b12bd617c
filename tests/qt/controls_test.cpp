// Every kind of control in both directions, by mouse and by the dialogs' ways of the keyboard.
#include <QCheckBox>
#include <QComboBox>
#include <QRadioButton>

#include "tests/qt/fixture.h"

namespace vmgv {

TEST_F(QtTest, WhatTheUserDoesReachesTheModelOnce) {
  SampleForm form;
  play(form, {[&] {
         desktop.choose(form.combo, 0);
         desktop.click(form.ascending);
         desktop.click(form.ascending);
         desktop.click(form.descending);
         desktop.click(form.check);
         desktop.doubleClick(form.check);
         desktop.enter(form.text, "aΩ");
       }});
  EXPECT_EQ(form.events, "combo 0, option 0, option 1, check 1, check 0, check 1, text a, text aΩ");
}

TEST_F(QtTest, WidgetsFollowTheModel) {
  SampleForm form;
  play(form, {[&] {
                form.combo.clear();
                form.combo.addItem("a & b");
                form.combo.setListIndex(0);
                form.ascending.setValue(true);
                form.check.setValue(2);
                form.check.setCaption("R&D");
              },
              [&] {
                EXPECT_EQ(shownWidget<QComboBox>(form.combo).currentText(), "a & b");
                EXPECT_TRUE(shownWidget<QRadioButton>(form.ascending).isChecked());
                EXPECT_EQ(shownWidget<QCheckBox>(form.check).checkState(), Qt::PartiallyChecked);
                EXPECT_EQ(shownWidget<QCheckBox>(form.check).text(), "R&&D");
                EXPECT_EQ(form.events, "combo 0, option 0, check 2");
                form.ascending.setValue(false);
              },
              [&] {
                EXPECT_FALSE(shownWidget<QRadioButton>(form.ascending).isChecked())
                    << "a selection that code takes back leaves none in the group";
              }});
}

TEST_F(QtTest, AHandlerThatTakesAChangeBackWins) {
  SampleForm form;
  form.combo.onClick = [&] { form.combo.setListIndex(0); };
  play(form, {[&] { desktop.choose(form.combo, 2); },
              [&] { EXPECT_EQ(shownWidget<QComboBox>(form.combo).currentIndex(), 0); }});
}

TEST_F(QtTest, TabFollowsTheOrderOfCreationAndStopsAtTheSelectedOption) {
  SampleForm form;
  form.descending.setValue(true);
  std::string stops;
  play(form, {[&] {
         for (int i = 0; i < 7; ++i) {
           stops += desktop.focused()->address() + " ";
           desktop.press(*desktop.focused(), Key::Tab, 0);
         }
         desktop.press(*desktop.focused(), Key::Tab, kShift);
         stops += desktop.focused()->address();
       }});
  EXPECT_EQ(stops, "combo option(1) check text cmdBrowse cmdOK cmdCancel cmdCancel");
}

TEST_F(QtTest, KeysDoWhatTheyDoOnADesktop) {
  const struct {
    const char* in;
    Key key;
    const char* events;
  } cases[] = {
      {"combo", Key::Return, "ok"},
      {"cmdCancel", Key::Return, "cancel"},
      {"check", Key::Escape, "cancel"},
      {"check", Key::Space, "check 1"},
      {"option(0)", Key::Down, "option 1"},
      {"combo", Key::Down, "combo 0"},
      {"text", static_cast<Key>('A'), "text a"},
  };
  for (const auto& each : cases) {
    SampleForm form;
    form.ascending.setValue(true);
    form.events.clear();
    play(form, {[&] { desktop.press(*form.find(each.in), each.key, 0); }});
    EXPECT_EQ(form.events, each.events) << each.in;
  }
}

TEST_F(QtTest, HandlersComeFirst) {
  SampleForm form;
  form.cmdOK.onKeyDown = [&](Key key, int shift) {
    form.note("key " + std::to_string(static_cast<int>(key)) + "/" + std::to_string(shift));
    return key == Key::Escape;
  };
  play(form, {[&] { desktop.press(form.cmdOK, Key::Escape, 0); },
              [&] { desktop.press(form.cmdOK, static_cast<Key>('C'), kControl | kShift); },
              [&] { desktop.press(form.cmdOK, Key::Return, 0); }});
  EXPECT_EQ(form.events, "key 27/0, key 67/3, key 13/0, ok");
}

}  // namespace vmgv

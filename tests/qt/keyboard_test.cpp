// The dialogs' ways of the keyboard.
#include <QPushButton>

#include "tests/qt/fixture.h"

namespace vmgv {
namespace {

using KeyboardTest = QtTest;

TEST_F(KeyboardTest, TabFollowsTheOrderOfCreationWithOneStopAGroup) {
  SampleForm form;
  form.ascending.setValue(true);
  std::vector<std::string> stops;
  play(form, {[&] {
         for (int i = 0; i < 8; ++i) {
           stops.push_back(desktop.focused()->address());
           desktop.press(*desktop.focused(), Key::Tab, 0);
         }
         desktop.press(*desktop.focused(), Key::Tab, kShift);
         stops.push_back(desktop.focused()->address());
       }});
  EXPECT_EQ(stops, (std::vector<std::string>{"combo", "option(0)", "check", "text", "cmdBrowse", "cmdOK",
                                             "cmdCancel", "combo", "combo"}));
}

TEST_F(KeyboardTest, KeysDoWhatTheyDoOnADesktop) {
  const struct {
    const char* what;
    std::function<Control&(SampleForm&)> in;
    Key key;
    const char* events;
  } cases[] = {
      {"Enter clicks the default button", [](auto& form) -> Control& { return form.text; }, Key::Return,
       "ok"},
      {"... from a list too", [](auto& form) -> Control& { return form.combo; }, Key::Return, "ok"},
      {"... unless another button has the focus", [](auto& form) -> Control& { return form.cmdCancel; },
       Key::Return, "cancel"},
      {"Esc clicks the cancel button", [](auto& form) -> Control& { return form.check; }, Key::Escape,
       "cancel"},
      {"Space clicks", [](auto& form) -> Control& { return form.check; }, Key::Space, "check 1"},
      {"an arrow moves within a group", [](auto& form) -> Control& { return form.ascending; }, Key::Down,
       "option 1"},
      {"... and along a list", [](auto& form) -> Control& { return form.combo; }, Key::Down, "combo 0"},
      {"letters are typed", [](auto& form) -> Control& { return form.text; }, static_cast<Key>('A'),
       "text a"},
  };
  for (const auto& each : cases) {
    SampleForm form;
    form.ascending.setValue(true);
    form.events.clear();
    play(form, {[&] { desktop.press(each.in(form), each.key, 0); }});
    EXPECT_EQ(form.events, each.events) << each.what;
  }
}

TEST_F(KeyboardTest, HandlersComeFirst) {
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

TEST_F(KeyboardTest, WithoutACancelButtonEscDoesNothing) {
  SampleForm form;
  form.cmdCancel.isCancel = false;
  play(form, {[&] { desktop.press(form.check, Key::Escape, 0); }, [&] { EXPECT_TRUE(form.isOpen()); }});
}

TEST_F(KeyboardTest, TheFirstFocusIsWhereTheFormSays) {
  SampleForm form;
  form.initialFocus = &form.text;
  play(form, {[&] { EXPECT_EQ(desktop.focused(), &form.text); }});
  SampleForm other;
  other.combo.setEnabled(false);
  other.descending.setValue(true);
  play(other, {[&] { EXPECT_EQ(desktop.focused(), &other.descending) << "the selected one of the group"; }});
}

TEST_F(KeyboardTest, OnlyTheDefaultButtonLooksLikeOne) {
  SampleForm form;
  play(form, {[&] {
         EXPECT_TRUE(shownWidget<QPushButton>(form.cmdOK).isDefault());
         desktop.focus(form.cmdCancel);
         EXPECT_FALSE(shownWidget<QPushButton>(form.cmdCancel).isDefault());
       }});
}

}  // namespace
}  // namespace vmgv

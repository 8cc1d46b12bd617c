// Native controls in both directions, and the keyboard.

#include "tests/win32/fixture.h"

namespace vmgv {
namespace {

// As the system's own input, which goes to whatever window is in the foreground.
void pressReally(HWND dialog, const std::vector<WORD>& keys) {
  SetForegroundWindow(dialog);
  std::vector<INPUT> inputs;
  for (const WORD key : keys) inputs.push_back({.type = INPUT_KEYBOARD, .ki = {.wVk = key}});
  for (std::size_t i = keys.size(); i-- > 0;) {
    inputs.push_back({.type = INPUT_KEYBOARD, .ki = {.wVk = keys[i], .dwFlags = KEYEVENTF_KEYUP}});
  }
  ASSERT_EQ(SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT)), inputs.size());
}

}  // namespace

TEST_F(Win32Test, WhatTheUserDoesReachesTheModelOnce) {
  SampleForm form;
  play(form, {[&] {
         desktop.choose(form.combo, 0);
         desktop.choose(form.combo, 0);  // the same entry again
         desktop.press(form.combo, Key::Down, 0);
         desktop.click(form.up);
         desktop.click(form.up);
         desktop.click(form.down);
         desktop.doubleClick(form.check);
         desktop.enter(form.text, "aΩ");
         desktop.enter(form.text, "");
         form.check.onClick = [&] { form.check.setEnabled(false); };
         desktop.click(form.check);
         EXPECT_EQ(desktop.focused(), &form.text) << "what is disabled passes the focus on";
       }});
  EXPECT_EQ(form.events, "combo 0, combo 0, combo 1, up, down, check 1, check 0, text a, text aΩ, text ");
}

TEST_F(Win32Test, WindowsFollowTheModel) {
  SampleForm form;
  form.combo.onClick = [&] { form.combo.setListIndex(0); };  // takes every choice back
  const auto state = [&](const Control& control, UINT question) {
    return SendMessageW(windowOf(control), question, 0, 0);
  };
  play(form, {[&] {
                EXPECT_EQ(textOf(windowOf(form.check)), L"R&&D");  // no mnemonic
                desktop.choose(form.combo, 2);
                EXPECT_EQ(state(form.combo, CB_GETCURSEL), 0);
                form.combo.clear();
                form.combo.addItem("α & β");
                form.combo.setListIndex(0);
                form.check.setValue(2);
                form.frame.setEnabled(false);
                form.text.setVisible(false);
              },
              [&] {
                desktop.focused();  // what the program did outside of a step's act shows from here on
                EXPECT_EQ(textOf(windowOf(form.combo)), L"α & β");
                EXPECT_EQ(state(form.check, BM_GETCHECK), BST_INDETERMINATE);
                EXPECT_FALSE(IsWindowEnabled(windowOf(form.up)));  // with its frame
                EXPECT_FALSE(IsWindowVisible(windowOf(form.text)));
              }});
}

TEST_F(Win32Test, TheSystemsOwnKeysWalkAndClick) {
  const struct {
    const char* what;
    std::vector<std::vector<WORD>> keys;
    const char* events;
    const char* focused;  // empty: the dialog is closed
  } cases[] = {
      {"tab passes over the rest of the group", {{VK_TAB}, {VK_TAB}}, "", "check"},
      {"and goes back to the selected option", {{VK_TAB}, {VK_TAB}, {VK_SHIFT, VK_TAB}}, "", "option(1)"},
      {"arrows select, round the end too", {{VK_TAB}, {VK_DOWN}, {VK_LEFT}}, "up, down", "option(1)"},
      {"arrows step through a closed list", {{VK_DOWN}, {VK_DOWN}}, "combo 0, combo 1", "combo"},
      {"Esc closes an open list, not the dialog", {{VK_MENU, VK_DOWN}, {VK_DOWN}, {VK_ESCAPE}}, "", "combo"},
      {"Enter takes an open list's entry", {{VK_MENU, VK_DOWN}, {VK_DOWN}, {VK_RETURN}}, "combo 0", "combo"},
      {"Space", {{VK_TAB}, {VK_TAB}, {VK_SPACE}}, "check 1", "check"},
      {"letters", {{VK_TAB}, {VK_TAB}, {VK_TAB}, {'A'}, {VK_SHIFT, 'B'}}, "text a, text aB", "text"},
      {"Enter is the default button", {{VK_RETURN}}, "ok", ""},
      {"Enter on a button is that button", {{VK_SHIFT, VK_TAB}, {VK_RETURN}}, "cancel", ""},
      {"Esc is the cancel button", {{VK_ESCAPE}}, "cancel", ""},
      {"Alt+F4 is the title bar", {{VK_MENU, VK_F4}}, "", ""},
  };
  SetCursorPos(0, 0);  // a list that opens under the pointer follows it
  for (const auto& each : cases) {
    SampleForm form;
    form.down.setValue(true);
    form.events.clear();
    std::vector<Steps::Step> steps;
    for (const auto& keys : each.keys) steps.push_back([&] { pressReally(dialog(), keys); });
    std::string focused;
    if (*each.focused) steps.push_back([&] { focused = desktop.focused()->address(); });
    play(form, std::move(steps));
    EXPECT_EQ(form.events, each.events) << each.what;
    EXPECT_EQ(focused, each.focused) << each.what;
  }
}

}  // namespace vmgv

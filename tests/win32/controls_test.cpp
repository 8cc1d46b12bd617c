// Native controls in both directions, and the keyboard.
#include <windows.h>

#include <commctrl.h>

#include "frontends/win32/window_walk.h"
#include "tests/win32/fixture.h"

namespace vmgv {
namespace {

// As the system's own input, which goes to whatever window is in the foreground.
void pressReally(HWND dialog, const std::vector<WORD>& keys) {
  SetForegroundWindow(dialog);
  std::vector<INPUT> inputs;
  for (const WORD key : keys) {
    INPUT input{.type = INPUT_KEYBOARD};
    input.ki.wVk = key;
    inputs.push_back(input);
  }
  for (auto key = keys.rbegin(); key != keys.rend(); ++key) {
    INPUT input{.type = INPUT_KEYBOARD};
    input.ki.wVk = *key;
    input.ki.dwFlags = KEYEVENTF_KEYUP;
    inputs.push_back(input);
  }
  ASSERT_EQ(SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT)), inputs.size());
}

// Of the dialog's tips, those that belong to the window.
std::wstring toolTipOf(HWND window) {
  wchar_t text[80] = L"";
  TTTOOLINFOW tool{};
  tool.cbSize = sizeof tool;
  tool.hwnd = GetParent(window);
  tool.uId = reinterpret_cast<UINT_PTR>(window);
  tool.lpszText = text;
  eachThreadWindow([&](HWND tips) {
    if (GetWindow(tips, GW_OWNER) == tool.hwnd) {
      SendMessageW(tips, TTM_GETTEXTW, std::size(text), reinterpret_cast<LPARAM>(&tool));
    }
    return text[0] == 0;
  });
  return text;
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
       }});
  EXPECT_EQ(form.events, "combo 0, combo 0, combo 1, up, down, check 1, check 0, text a, text aΩ, text ");
}

TEST_F(Win32Test, WindowsFollowTheModel) {
  SampleForm form;
  form.combo.onClick = [&] { form.combo.setListIndex(0); };  // takes every choice back
  play(form, {[&] {
                EXPECT_EQ(textOf(windowOf(form.check)), L"R&&D");  // no mnemonic
                EXPECT_EQ(textOf(windowOf(form.label)), L"Tom & Jerry");
                EXPECT_EQ(textOf(dialog()), L"Δείγμα");
                desktop.choose(form.combo, 2);
                EXPECT_EQ(SendMessageW(windowOf(form.combo), CB_GETCURSEL, 0, 0), 0);
                form.combo.clear();
                form.combo.addItem("α & β");
                form.combo.setListIndex(0);
                form.up.setValue(true);
                form.check.setValue(2);
                form.frame.setEnabled(false);
                form.text.setVisible(false);
                form.text.setText("ω");
                form.check.setToolTip("first");
                desktop.focused();
                form.check.setToolTip("υπόδειξη & more");
              },
              [&] {
                desktop.focused();  // what the program did outside of a step's act shows from here on
                EXPECT_EQ(textOf(windowOf(form.combo)), L"α & β");
                EXPECT_EQ(SendMessageW(windowOf(form.up), BM_GETCHECK, 0, 0), BST_CHECKED);
                EXPECT_EQ(SendMessageW(windowOf(form.check), BM_GETCHECK, 0, 0), BST_INDETERMINATE);
                EXPECT_FALSE(IsWindowEnabled(windowOf(form.up)));  // with its frame
                EXPECT_FALSE(IsWindowVisible(windowOf(form.text)));
                EXPECT_EQ(textOf(windowOf(form.text)), L"ω");
                EXPECT_EQ(toolTipOf(windowOf(form.check)), L"υπόδειξη & more");
                form.up.setValue(false);
                form.frame.setEnabled(true);
                desktop.focused();
                EXPECT_EQ(SendMessageW(windowOf(form.up), BM_GETCHECK, 0, 0), BST_UNCHECKED);
                EXPECT_TRUE(IsWindowEnabled(windowOf(form.up)));
              }});
}

TEST_F(Win32Test, TheSystemsOwnKeysWalkAndClick) {
  const struct {
    const char* what;
    std::vector<std::vector<WORD>> keys;
    const char* events;
    const char* focused;  // empty: the dialog is closed
  } cases[] = {
      {"tab stops at the selected option", {{VK_TAB}}, "", "option(1)"},
      {"tab passes over the rest of the group", {{VK_TAB}, {VK_TAB}}, "", "check"},
      {"and goes back", {{VK_TAB}, {VK_TAB}, {VK_SHIFT, VK_TAB}}, "", "option(1)"},
      {"round the end", {{VK_SHIFT, VK_TAB}}, "", "cmdCancel"},
      {"arrows move the selection, round the end too",
       {{VK_TAB}, {VK_DOWN}, {VK_DOWN}},
       "up, down",
       "option(1)"},
      {"left is back", {{VK_TAB}, {VK_LEFT}}, "up", "option(0)"},
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

TEST_F(Win32Test, TheButtonThatEnterClicksIsMarked) {
  SampleForm form;
  std::string marked;
  const auto look = [&] {
    for (const auto& control : form.controls()) {
      if (!dynamic_cast<CommandButton*>(control.get())) continue;
      const LONG_PTR kind = GetWindowLongPtrW(windowOf(*control), GWL_STYLE) & BS_TYPEMASK;
      if (kind == BS_DEFPUSHBUTTON) marked += control->address() + " ";
    }
  };
  play(form, {[&] {
         look();
         desktop.focus(form.cmdBrowse);
         look();
         desktop.focus(form.text);
         look();
       }});
  EXPECT_EQ(marked, "cmdOK cmdBrowse cmdOK ");
}

TEST_F(Win32Test, WhatIsDisabledUnderTheFocusPassesItOn) {
  SampleForm form;
  form.check.onClick = [&] { form.check.setEnabled(false); };
  play(form, {[&] {
         desktop.click(form.check);
         EXPECT_EQ(desktop.focused(), &form.text);
       }});
}

}  // namespace vmgv

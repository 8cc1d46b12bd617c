// A form of native controls, a host window around it, and a user who acts on it step by step.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "frontends/user/steps.h"
#include "frontends/win32/win32_desktop.h"

namespace vmgv {

struct SampleForm : Form {
  SampleForm() : Form("frmSample") {
    setCaption("Δείγμα");
    for (const char* entry : {"one", "two", "three"}) combo.addItem(entry);
    frame.setCaption("Ταξινόμηση κατά...");
    up.setCaption("Αύξουσα σειρά");
    down.setCaption("Φθίνουσα σειρά");
    check.setCaption("R&D");
    label.setCaption("Tom & Jerry");
    cmdOK.setCaption("OK");
    cmdCancel.setCaption("Άκυρο");
    label.buddy = &text;
    cmdOK.isDefault = cmdCancel.isCancel = true;
    combo.onClick = [this] { note("combo " + std::to_string(combo.listIndex())); };
    up.onClick = [this] { note("up"); };
    down.onClick = [this] { note("down"); };
    check.onClick = [this] { note("check " + std::to_string(check.value())); };
    text.onChange = [this] { note("text " + text.text()); };
    cmdOK.onClick = [this] { note("ok"), close(); };
    cmdCancel.onClick = [this] { note("cancel"), close(); };
    using namespace layout;
    group.content = column({item(up), item(down)});
    frame.content = row({item(combo).stretch(), item(group)});
    content = column({item(frame), item(check), row({item(label), item(text).stretch(), item(cmdBrowse)}),
                      buttons({&cmdOK, &cmdCancel})});
    open();
  }
  void note(const std::string& event) { events += (events.empty() ? "" : ", ") + event; }

  std::string events;
  Frame& frame = add<Frame>("frame");
  ComboBox& combo = add<ComboBox>("combo", &frame);
  PictureBox& group = add<PictureBox>("group", &frame);
  OptionButton& up = add<OptionButton>("option", &group, 0);
  OptionButton& down = add<OptionButton>("option", &group, 1);
  CheckBox& check = add<CheckBox>("check");
  Label& label = add<Label>("label");
  TextBox& text = add<TextBox>("text");
  CommandButton& cmdBrowse = add<CommandButton>("cmdBrowse");
  CommandButton& cmdOK = add<CommandButton>("cmdOK");
  CommandButton& cmdCancel = add<CommandButton>("cmdCancel");
};

struct Win32Test : testing::Test {
  // Shows the form and lets the steps act on it one after the other; what is left open is closed.
  void play(Form& form, std::vector<Steps::Step> steps) {
    form.layOut(desktop);
    Steps user(desktop, std::move(steps));
    desktop.showModal(form);
    user.finish();
  }

  HWND dialog() { return desktop.windowOf(desktop.form()); }

  // The window of a control on the dialog that is shown: windows come in the order of the controls.
  HWND windowOf(const Control& control) {
    HWND window = GetWindow(dialog(), GW_CHILD);
    for (const auto& other : control.form().controls()) {
      if (other.get() == &control) return window;
      window = GetWindow(window, GW_HWNDNEXT);
    }
    return nullptr;
  }

  Win32Desktop desktop;
};

// A top-level window of the host, as long as it lives.
inline auto hostWindow(const wchar_t* title) {
  const HWND window = CreateWindowExW(0, L"STATIC", title, WS_OVERLAPPEDWINDOW | WS_VISIBLE, 40, 40, 500, 300,
                                      nullptr, nullptr, nullptr, nullptr);
  return std::unique_ptr<HWND__, decltype(&DestroyWindow)>(window, DestroyWindow);
}

inline std::wstring textOf(HWND window) {
  wchar_t text[200] = L"";
  GetWindowTextW(window, text, 200);
  return text;
}

}  // namespace vmgv

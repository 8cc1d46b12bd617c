// A form with one control of each kind, shown on a desktop without a screen.
#pragma once

#include <gtest/gtest.h>

#include "frontends/headless/headless_desktop.h"
#include "frontends/user/steps.h"

namespace vmgv {

struct SampleForm : Form {
  SampleForm() : Form("frmSample") {
    for (const char* entry : {"one", "two", "three"}) combo.addItem(entry);
    cmdOK.isDefault = true;
    cmdCancel.isCancel = true;
    cmdOK.onClick = [this] { note("ok"), close(); };
    cmdCancel.onClick = [this] { note("cancel"), close(); };
    cmdHelp.onClick = [this] { note("help"); };
    check.onClick = [this] { note("check " + std::to_string(check.value())); };
    for (const char* entry : {"uno", "due"}) list.addItem(entry);
    list.onDblClick = [this] { note("twice " + list.text()), list.removeItem(list.listIndex()); };
    combo.onClick = [this] { note("combo " + std::to_string(combo.listIndex())); };
    text.onChange = [this] { note("text " + text.text()); };
    for (OptionButton* option : {&first, &second, &third}) {
      option->onClick = [this, option] { note(option->address()); };
    }
    open();
  }
  void note(const std::string& event) { events += (events.empty() ? "" : ", ") + event; }

  std::string events;
  ComboBox& combo = add<ComboBox>("combo");
  PictureBox& group = add<PictureBox>("group");
  OptionButton& first = add<OptionButton>("option", &group, 0);
  OptionButton& second = add<OptionButton>("option", &group, 1);
  OptionButton& third = add<OptionButton>("option", &group, 2);
  CheckBox& check = add<CheckBox>("check");
  Label& label = add<Label>("label");
  TextBox& text = add<TextBox>("text");
  ProgressBar& bar = add<ProgressBar>("bar");
  CommandButton& cmdOK = add<CommandButton>("cmdOK");
  CommandButton& cmdCancel = add<CommandButton>("cmdCancel");
  CommandButton& cmdHelp = add<CommandButton>("cmdHelp");
  ListBox& list = add<ListBox>("list");
};

class HeadlessTest : public testing::Test {
 protected:
  // Shows the form and lets `steps` act on it one after the other.
  void play(Form& form, std::vector<Steps::Step> steps) {
    Steps user(desktop, std::move(steps));
    desktop.showModal(form);
    user.finish();
  }

  HeadlessDesktop desktop;
};

}  // namespace vmgv

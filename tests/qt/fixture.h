// A form with one control of each kind, and a user who acts on it step by step.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <vector>

#include "frontends/qt/qt_desktop.h"
#include "frontends/user/steps.h"

namespace vmgv {

struct SampleForm : Form {
  SampleForm() : Form("frmSample") {
    for (const char* entry : {"one", "two", "three"}) combo.addItem(entry);
    frame.setCaption("Ταξινόμηση κατά...");
    ascending.setCaption("Αύξουσα σειρά");
    descending.setCaption("Φθίνουσα σειρά");
    check.setCaption("Εξαγωγή γραμμής προεπισκόπησης");
    label.setCaption("Tom & Jerry");
    cmdBrowse.setCaption("...");
    cmdOK.setCaption("OK");
    cmdCancel.setCaption("Άκυρο");
    cmdOK.isDefault = true;
    cmdCancel.isCancel = true;
    cmdOK.onClick = [this] { note("ok"), close(); };
    cmdCancel.onClick = [this] { note("cancel"), close(); };
    check.onClick = [this] { note("check " + std::to_string(check.value())); };
    combo.onClick = [this] { note("combo " + std::to_string(combo.listIndex())); };
    text.onChange = [this] { note("text " + text.text()); };
    ascending.onClick = [this] { note("option 0"); };
    descending.onClick = [this] { note("option 1"); };
    group.content = layout::column({layout::item(ascending), layout::item(descending)});
    frame.content = layout::row({layout::item(combo).stretch(), layout::item(group)});
    content = layout::column(
        {layout::item(frame), layout::item(check),
         layout::row({layout::item(label), layout::item(text).stretch(), layout::item(cmdBrowse)}),
         layout::item(bar), layout::buttons({&cmdOK, &cmdCancel})});
    open();
  }
  void note(const std::string& event) { events += (events.empty() ? "" : ", ") + event; }

  std::string events;
  Frame& frame = add<Frame>("frame");
  ComboBox& combo = add<ComboBox>("combo", &frame);
  PictureBox& group = add<PictureBox>("group", &frame);
  OptionButton& ascending = add<OptionButton>("option", &group, 0);
  OptionButton& descending = add<OptionButton>("option", &group, 1);
  CheckBox& check = add<CheckBox>("check");
  Label& label = add<Label>("label");
  TextBox& text = add<TextBox>("text");
  CommandButton& cmdBrowse = add<CommandButton>("cmdBrowse");
  ProgressBar& bar = add<ProgressBar>("bar");
  CommandButton& cmdOK = add<CommandButton>("cmdOK");
  CommandButton& cmdCancel = add<CommandButton>("cmdCancel");
};

struct QtTest : testing::Test {
  // Shows the form and lets the steps act on it one after the other; what is left open is closed.
  void play(Form& form, std::vector<Steps::Step> steps) {
    form.layOut(desktop);
    Steps user(desktop, std::move(steps));
    desktop.showModal(form);
    user.finish();
  }

  QtDesktop desktop;
};

// The widget of a control on the dialog that is shown.
template <class Widget>
Widget& shownWidget(const Control& control) {
  auto* dialog = QApplication::activeModalWidget();
  auto* widget = dialog ? dialog->findChild<Widget*>(qt(control.address())) : nullptr;
  if (!widget) throw std::logic_error(control.address() + " is not shown");
  return *widget;
}

}  // namespace vmgv

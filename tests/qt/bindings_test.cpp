// Every kind of control in both directions: the user's acts reach the model once, the model's changes the
// widget.
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>

#include "tests/qt/fixture.h"

namespace vmgv {
namespace {

using BindingsTest = QtTest;

TEST_F(BindingsTest, WhatTheUserDoesReachesTheModelOnce) {
  const struct {
    std::function<void(QtDesktop&, SampleForm&)> act;
    const char* events;
  } cases[] = {
      {[](auto& user, auto& form) { user.choose(form.combo, 2); }, "combo 2"},
      {[](auto& user, auto& form) {
         user.choose(form.combo, 0);
         user.choose(form.combo, 0);
       },
       "combo 0, combo 0"},
      {[](auto& user, auto& form) {
         user.click(form.ascending);
         user.click(form.ascending);
       },
       "option 0"},
      {[](auto& user, auto& form) {
         user.click(form.descending);
         user.click(form.ascending);
       },
       "option 1, option 0"},
      {[](auto& user, auto& form) {
         user.click(form.check);
         user.click(form.check);
       },
       "check 1, check 0"},
      {[](auto& user, auto& form) { user.doubleClick(form.check); }, "check 1, check 0"},
      {[](auto& user, auto& form) { user.enter(form.text, "aΩ"); }, "text a, text aΩ"},
      {[](auto& user, auto& form) { user.enter(form.text, ""); }, ""},
      {[](auto& user, auto& form) { user.click(form.cmdOK); }, "ok"},
  };
  for (const auto& each : cases) {
    SampleForm form;
    play(form, {[&] { each.act(desktop, form); }});
    EXPECT_EQ(form.events, each.events);
  }
}

TEST_F(BindingsTest, WidgetsFollowTheModel) {
  SampleForm form;
  form.combo.setListIndex(1);
  play(form, {[&] {
                EXPECT_EQ(shownWidget<QComboBox>(form.combo).currentText(), "two");
                EXPECT_EQ(shownWidget<QLabel>(form.label).text(), "Tom & Jerry");
                form.combo.clear();
                form.combo.addItem("a & b");
                form.combo.setListIndex(0);
                form.descending.setValue(true);
                form.check.setValue(2);
                form.check.setCaption("R&D");
                form.text.setText("typed by code");
                form.bar.setMaximum(7);
                form.bar.setValue(3);
                form.cmdBrowse.setEnabled(false);
                form.label.setVisible(false);
                form.frame.setCaption("A & B");
                form.text.setRect({0, 0, 1500, 300});
              },
              [&] {
                EXPECT_EQ(shownWidget<QComboBox>(form.combo).currentText(), "a & b");
                EXPECT_EQ(shownWidget<QComboBox>(form.combo).count(), 1);
                EXPECT_TRUE(shownWidget<QRadioButton>(form.descending).isChecked());
                EXPECT_EQ(shownWidget<QCheckBox>(form.check).checkState(), Qt::PartiallyChecked);
                EXPECT_EQ(shownWidget<QCheckBox>(form.check).text(), "R&&D");
                EXPECT_EQ(shownWidget<QLineEdit>(form.text).text(), "typed by code");
                EXPECT_EQ(shownWidget<QProgressBar>(form.bar).maximum(), 7);
                EXPECT_EQ(shownWidget<QProgressBar>(form.bar).value(), 3);
                EXPECT_FALSE(shownWidget<QPushButton>(form.cmdBrowse).isEnabled());
                EXPECT_FALSE(shownWidget<QLabel>(form.label).isVisible());
                EXPECT_EQ(shownWidget<QGroupBox>(form.frame).title(), "A && B");
                EXPECT_EQ(shownWidget<QLineEdit>(form.text).width(), 1500 / desktop.pixel().width);
                EXPECT_EQ(form.events, "combo 1, combo 0, option 1, check 2, text typed by code");
              }});
}

// A selection that code takes back leaves no button of the group selected.
TEST_F(BindingsTest, AGroupMayLoseItsSelection) {
  SampleForm form;
  form.ascending.setValue(true);
  play(form, {[&] { form.ascending.setValue(false); },
              [&] { EXPECT_FALSE(shownWidget<QRadioButton>(form.ascending).isChecked()); },
              [&] { desktop.click(form.descending); }});
  EXPECT_TRUE(form.descending.value());
}

TEST_F(BindingsTest, AHandlerThatTakesAChangeBackWins) {
  SampleForm form;
  form.check.onClick = [&] { form.check.setValue(0); };
  form.combo.onClick = [&] { form.combo.setListIndex(0); };
  play(form, {[&] { desktop.click(form.check); },
              [&] {
                EXPECT_FALSE(shownWidget<QCheckBox>(form.check).isChecked());
                desktop.choose(form.combo, 2);
              },
              [&] { EXPECT_EQ(shownWidget<QComboBox>(form.combo).currentIndex(), 0); }});
}

TEST_F(BindingsTest, WhatAUserCannotDoIsRefused) {
  SampleForm form;
  form.cmdBrowse.setEnabled(false);
  form.label.setVisible(false);
  form.group.setEnabled(false);
  play(form, {[&] {
                EXPECT_THROW(desktop.click(form.cmdBrowse), CannotDo);
                EXPECT_THROW(desktop.click(form.ascending), CannotDo) << "its container is disabled";
                EXPECT_THROW(desktop.click(form.frame), CannotDo);
                EXPECT_THROW(desktop.choose(form.combo, 3), CannotDo);
                EXPECT_THROW(desktop.choose(form.combo, -1), CannotDo);
                EXPECT_THROW(desktop.choose(form.check, 0), CannotDo);
                EXPECT_THROW(desktop.enter(form.check, "x"), CannotDo);
                EXPECT_THROW(desktop.enter(form.text, "two\nlines"), CannotDo);
                EXPECT_THROW(desktop.enter(form.text, "\xFF"), CannotDo);
                EXPECT_THROW(desktop.focus(form.bar), CannotDo);
                EXPECT_THROW(desktop.answer(MessageResult::Ok), CannotDo);
                EXPECT_THROW(desktop.pick({}), CannotDo);
                form.check.setRect(form.text.rect());
              },
              [&] { EXPECT_THROW(desktop.click(form.check), CannotDo) << "it lies under the text field"; }});
  EXPECT_EQ(form.events, "");
  EXPECT_THROW(desktop.closeWindow(), CannotDo);
}

TEST_F(BindingsTest, PointersAreShown) {
  SampleForm form;
  play(form, {[&] { form.setPointer(Pointer::ArrowHourglass); },
              [&] {
                EXPECT_EQ(QApplication::activeModalWidget()->cursor().shape(), Qt::BusyCursor);
                form.setPointer(Pointer::Default);
              },
              [&] { EXPECT_EQ(QApplication::activeModalWidget()->cursor().shape(), Qt::ArrowCursor); }});
}

}  // namespace
}  // namespace vmgv

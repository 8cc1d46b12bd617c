// What a user's acts do to a form, and what a user cannot do.
#include "support/automation/error.h"
#include "tests/headless/fixture.h"

namespace vmgv {
namespace {

using UserTest = HeadlessTest;

TEST_F(UserTest, ActsRaiseTheEventsOfTheModel) {
  struct {
    std::function<void(SampleForm&, HeadlessDesktop&)> act;
    const char* events;
  } const cases[]{
      {[](SampleForm& f, HeadlessDesktop& d) { d.click(f.check), d.click(f.check); }, "check 1, check 0"},
      {[](SampleForm& f, HeadlessDesktop& d) { d.doubleClick(f.check); }, "check 1, check 0"},
      {[](SampleForm& f, HeadlessDesktop& d) { d.doubleClick(f.cmdOK); }, "ok"},
      {[](SampleForm& f, HeadlessDesktop& d) { d.click(f.second), d.click(f.second), d.click(f.first); },
       "option(1), option(0)"},
      {[](SampleForm& f, HeadlessDesktop& d) { d.choose(f.combo, 1), d.choose(f.combo, 1); },
       "combo 1, combo 1"},
      {[](SampleForm& f, HeadlessDesktop& d) { d.enter(f.text, "aβ"); }, "text a, text aβ"},
      {[](SampleForm& f, HeadlessDesktop& d) { d.enter(f.text, "a"), d.enter(f.text, "b"); },
       "text a, text b"},
      {[](SampleForm& f, HeadlessDesktop& d) { d.enter(f.text, "a"), d.enter(f.text, ""); }, "text a, text "},
      {[](SampleForm&, HeadlessDesktop& d) { d.closeWindow(); }, ""},
  };
  for (const auto& c : cases) {
    SampleForm form;
    play(form, {[&] { c.act(form, desktop); }});
    EXPECT_EQ(form.events, c.events);
  }
}

TEST_F(UserTest, KeysGoToTheControlThenToTheForm) {
  struct {
    const char* control;
    Key key;
    int shift;
    const char* events;
    const char* focused;
  } const cases[]{
      {"check", Key::Space, 0, "check 1", "check"},
      {"cmdHelp", Key::Space, 0, "help", "cmdHelp"},
      {"cmdHelp", Key::Return, 0, "help", "cmdHelp"},
      {"text", Key::Return, 0, "ok", ""},
      {"cmdHelp", Key::Escape, 0, "cancel", ""},
      {"text", Key::Escape, kShift, "", "text"},
      {"text", static_cast<Key>('Q'), kShift, "text Q", "text"},
      {"text", static_cast<Key>('Q'), 0, "text q", "text"},
      {"text", static_cast<Key>('Q'), kControl, "", "text"},
      {"combo", Key::Down, 0, "combo 0", "combo"},
      {"combo", Key::Up, 0, "", "combo"},
      {"option(0)", Key::Down, 0, "option(1)", "option(1)"},
      {"option(0)", Key::Left, 0, "option(2)", "option(2)"},
      {"combo", Key::Tab, 0, "", "option(0)"},
      {"option(0)", Key::Tab, 0, "", "check"},
      {"check", Key::Tab, kShift, "", "option(0)"},
      {"combo", Key::Tab, kShift, "", "cmdHelp"},
      {"check", Key::Tab, kControl, "", "check"},
  };
  for (const auto& c : cases) {
    SampleForm form;
    play(form, {[&] {
           desktop.press(*form.find(c.control), c.key, c.shift);
           const Control* focused = desktop.focused();
           EXPECT_EQ(focused ? focused->address() : "", c.focused) << c.control << " " << int(c.key);
         }});
    EXPECT_EQ(form.events, c.events) << c.control << " " << int(c.key);
  }
}

TEST_F(UserTest, KeyHandlersComeBeforeTheDefaultAndCancelButtons) {
  SampleForm form;
  form.cmdOK.onKeyDown = [&form](Key key, int) {
    if (key != Key::Escape) return false;
    form.note("handled");
    form.close();
    return true;
  };
  play(form, {[&] { desktop.press(form.cmdOK, Key::Escape, 0); }});
  EXPECT_EQ(form.events, "handled");
}

TEST_F(UserTest, BackspaceTakesAWholeCharacter) {
  SampleForm form;
  play(form, {[&] {
         desktop.enter(form.text, "aβ");
         desktop.press(form.text, Key::Backspace, 0);
         EXPECT_EQ(form.text.text(), "a");
         desktop.press(form.text, Key::Backspace, 0);
         desktop.press(form.text, Key::Backspace, 0);
         EXPECT_EQ(form.text.text(), "");
       }});
}

TEST_F(UserTest, RefusesWhatAUserCouldNotDo) {
  struct {
    std::function<void(SampleForm&, HeadlessDesktop&)> act;
    const char* reason;
  } const cases[]{
      {[](SampleForm& f, HeadlessDesktop& d) { f.cmdOK.setEnabled(false), d.click(f.cmdOK); },
       "cmdOK is disabled"},
      {[](SampleForm& f, HeadlessDesktop& d) { f.group.setVisible(false), d.click(f.second); },
       "group is hidden"},
      {[](SampleForm& f, HeadlessDesktop& d) { d.click(f.label); },
       "label, a Label, does not react to clicks"},
      {[](SampleForm& f, HeadlessDesktop& d) { d.choose(f.combo, 3); }, "combo has 3 entries, none at 3"},
      {[](SampleForm& f, HeadlessDesktop& d) { d.choose(f.combo, -1); }, "combo has 3 entries, none at -1"},
      {[](SampleForm& f, HeadlessDesktop& d) { d.choose(f.check, 0); }, "check is no list"},
      {[](SampleForm& f, HeadlessDesktop& d) { d.enter(f.check, "x"); }, "check is no field"},
      {[](SampleForm& f, HeadlessDesktop& d) { d.enter(f.text, "a\nb"); }, "text takes one line"},
      {[](SampleForm& f, HeadlessDesktop& d) { d.enter(f.text, "\xFF"); }, "the text is not UTF-8"},
      {[](SampleForm& f, HeadlessDesktop& d) { d.focus(f.bar); }, "bar does not take the focus"},
      {[](SampleForm&, HeadlessDesktop& d) { d.answer(MessageResult::Ok); }, "no message is on top"},
      {[](SampleForm&, HeadlessDesktop& d) { d.pick({}); }, "no file picker is on top"},
      {[](SampleForm&, HeadlessDesktop& d) {
         d.resize({0, 10});
       },
       "a window has a width and a height"},
      {[](SampleForm& f, HeadlessDesktop& d) { f.close(), d.click(f.cmdOK); }, "no dialog is shown"},
      {[](SampleForm& f, HeadlessDesktop& d) {
         SampleForm other;
         Steps inner(d, {[&] { d.click(f.cmdOK); }});
         d.showModal(other);
         inner.finish();
       },
       "frmSample is not on top"},
  };
  for (const auto& c : cases) {
    SampleForm form;
    play(form, {[&] {
           try {
             c.act(form, desktop);
             ADD_FAILURE() << "no refusal: " << c.reason;
           } catch (const CannotDo& error) {
             EXPECT_STREQ(error.what(), c.reason);
           }
         }});
    EXPECT_EQ(form.events, "") << c.reason;
  }
}

TEST_F(UserTest, FocusStartsWhereTheFormSaysAndLeavesWhatIsDisabled) {
  SampleForm form;
  form.initialFocus = &form.text;
  play(form, {[&] {
         EXPECT_EQ(desktop.focused(), &form.text);
         form.text.setEnabled(false);
         EXPECT_EQ(desktop.focused(), &form.cmdOK);
         desktop.click(form.cmdHelp);
         EXPECT_EQ(desktop.focused(), &form.cmdHelp);
       }});
  SampleForm plain;
  play(plain, {[&] { EXPECT_EQ(desktop.focused(), &plain.combo); }});
  Form empty("frmEmpty");
  empty.open();
  play(empty, {[&] { EXPECT_EQ(desktop.focused(), nullptr); }});
}

}  // namespace
}  // namespace vmgv

// What a user's acts do to a form, and what a user cannot do.
#include "tests/headless/fixture.h"

namespace vmgv {
namespace {

using UserTest = HeadlessTest;
using F = SampleForm;
using D = HeadlessDesktop;

TEST_F(UserTest, ActsRaiseTheEventsOfTheModelOrAreRefused) {
  struct {
    void (*act)(F&, D&);
    const char* events;
    std::string refusal = "";
  } const cases[]{
      {[](F& f, D& d) { d.doubleClick(f.check); }, "check 1, check 0"},
      {[](F& f, D& d) { d.click(f.second), d.click(f.second), d.click(f.first); }, "option(1), option(0)"},
      {[](F& f, D& d) { d.enter(f.text, "aβ"), d.enter(f.text, "b"); }, "text a, text aβ, text b"},
      {[](F& f, D& d) { d.enter(f.text, "β"), d.press(f.text, Key::Backspace, 0); }, "text β, text "},
      {[](F& f, D& d) {
         f.text.setText("αβγ"), f.text.select(1, 1), d.press(f.text, static_cast<Key>('X'), 0);
       },
       "text αβγ, text αxγ"},
      {[](F& f, D& d) {
         f.text.onKeyPress = [](char32_t typed) { return typed != U'β'; };
         d.enter(f.text, "aββ"), d.press(f.text, Key::Backspace, 0);
       },
       "text β, text ββ"},
      {[](F& f, D& d) { d.doubleClick(f.list, 1); }, "twice due"},

      {[](F& f, D& d) { f.cmdOK.setEnabled(false), d.click(f.cmdOK); }, "", "cmdOK is disabled"},
      {[](F& f, D& d) { f.group.setVisible(false), d.click(f.second); }, "", "group is hidden"},
      {[](F& f, D& d) { d.click(f.label); }, "", "label, a Label, does not react to clicks"},
      {[](F& f, D& d) { d.choose(f.combo, 3); }, "", "combo has 3 entries, none at 3"},
      {[](F& f, D& d) { d.click(f.list); }, "", "list is clicked at an entry: choose one"},
      {[](F& f, D& d) { d.doubleClick(f.list, 2); }, "", "list has 2 entries, none at 2"},
      {[](F& f, D& d) { d.enter(f.text, "a\nb"); }, "", "text takes one line"},
      {[](F& f, D& d) { d.enter(f.text, "\xFF"); }, "", "the text is not UTF-8"},
      {[](F& f, D& d) { d.focus(f.bar); }, "", "bar does not take the focus"},
      {[](F&, D& d) { d.answer(MessageResult::Ok); }, "", "no message is on top"},
      {[](F&, D& d) {
         d.resize(Size{0, 10});
       },
       "", "a window has a width and a height"},
      {[](F& f, D& d) { f.close(), d.click(f.cmdOK); }, "", "no dialog is shown"},
  };
  for (const auto& c : cases) {
    SampleForm form;
    std::string refusal;
    play(form, {[&] {
           try {
             c.act(form, desktop);
           } catch (const CannotDo& error) {
             refusal = error.what();
           }
         }});
    EXPECT_EQ(form.events, c.events) << c.refusal;
    EXPECT_EQ(refusal, c.refusal) << c.events;
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
      {"text", Key::Return, 0, "ok", ""},
      {"text", Key::Escape, kShift, "", "text"},
      {"text", static_cast<Key>('Q'), kShift, "text Q", "text"},
      {"text", static_cast<Key>('Q'), kControl, "", "text"},
      {"combo", Key::Down, 0, "combo 0", "combo"},
      {"option(0)", Key::Down, 0, "option(1)", "option(1)"},
      {"option(0)", Key::Left, 0, "option(2)", "option(2)"},
      {"combo", Key::Tab, 0, "", "option(0)"},
      {"option(0)", Key::Tab, 0, "", "check"},
      {"check", Key::Tab, kShift, "", "option(0)"},
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

TEST_F(UserTest, FocusStartsWhereTheFormSaysAndLeavesWhatIsDisabled) {
  SampleForm form;
  form.initialFocus = &form.text;
  play(form, {[&] {
         EXPECT_EQ(desktop.focused(), &form.text);
         form.text.setEnabled(false);
         EXPECT_EQ(desktop.focused(), &form.cmdOK);
       }});
}

}  // namespace
}  // namespace vmgv

// Every single late-bound call of a session in the format conditions editor fails once: the failure is told,
// or the host gets it before the dialog is shown; all else is written, and the dialog goes on.
#include "support/forms/property_editor.h"
#include "tests/dialogs/contract_guide.h"
#include "tests/dialogs/fixture.h"

namespace vmgv {
namespace {

// Does one thing after the other, whatever messages come in between.
class Editor final : public IdleHandler {
 public:
  explicit Editor(DialogFixture& f) : f_(f) { before_ = f.desktop.setIdleHandler(this); }
  ~Editor() override { f_.desktop.setIdleHandler(before_); }
  Editor(const Editor&) = delete;
  Editor& operator=(const Editor&) = delete;

  bool waiting() override {
    if (const Box* box = f_.desktop.box()) return answer(*box), true;
    if (f_.desktop.form()->name() == "InputBox") return f_.desktop.click(f_.at("cmdOK")), true;
    if (next_ == kActs.size()) return false;
    kActs[next_++](f_);
    return true;
  }
  void yielding() override {}
  bool opened() const { return next_ > 0; }

 private:
  void answer(const Box& box) {
    if (box.kind == Box::Kind::Palette) return f_.desktop.chooseColour(0x0000FF);
    f_.desktop.answer(box.style == MessageStyle::Question ? MessageResult::Yes : MessageResult::Ok);
  }

  using F = DialogFixture;
  static inline const std::vector<void (*)(F&)> kActs{
      [](F& f) { f.desktop.choose(f.at("smuList"), 1); },
      [](F& f) { f.desktop.choose(f.at("smuProperties.column"), 2); },
      [](F& f) { f.desktop.choose(f.at("smuProperties.operator"), 6); },
      [](F& f) { f.desktop.enter(f.at("smuProperties.value1"), "1"); },
      [](F& f) { f.desktop.click(f.at("smuProperties.backcolor")); },
      [](F& f) { f.desktop.enter(f.at("smuProperties.fontsize"), "7"); },
      [](F& f) { f.desktop.click(f.at("smuFont.1")); },
      [](F& f) { f.desktop.click(f.at("smuToolbar.add")); },
      [](F& f) { f.desktop.click(f.at("smuToolbar.delete")); },
      [](F& f) { f.desktop.click(f.at("cmdOk")); }};
  DialogFixture& f_;
  IdleHandler* before_;
  std::size_t next_ = 0;
};

struct Session {
  bool opened = false;
  std::size_t failures = 0;  // told to the user
  std::int32_t thrown = 0;   // the error that the host got
  std::size_t writes = 0;
};

Session edit(Fault& fault) {
  FakeGrid grid = gridOfColumns(3);
  grid.rules = {{"a"}, {"b"}};
  grid.rules[1].style = {{"FontSize", 12.0}, {"FontName", "Courier"}, {"FontBold", true}};
  DialogFixture f(std::move(grid));
  f.control.putRef("Grid", makeObject<FaultyObject>(f.grid.object(), fault));
  Session session;
  {
    Editor user(f);
    try {
      f.control.call("ShowFormat");
    } catch (const Error& error) {
      session.thrown = error.number();
    }
    session.opened = user.opened();
  }
  EXPECT_EQ(f.desktop.form(), nullptr);
  for (const std::string& text : f.messages()) session.failures += text == Fault::kDescription;
  session.writes = f.grid.log.size();
  return session;
}

TEST(ConditionsFaults, EveryCallOfTheGrid) {
  Fault counting;
  const Session healthy = edit(counting);
  EXPECT_EQ(healthy.writes, 8u);
  EXPECT_EQ(counting.asked, membersInGuide("ShowFormat"));
  for (int failAt = 1; failAt <= counting.calls; failAt += kFaultStep) {
    Fault fault{failAt};
    const Session session = edit(fault);
    const std::string what = std::to_string(failAt) + " " + fault.failed;
    EXPECT_EQ(session.failures + (session.thrown == Fault::kNumber), 1u) << what;
    EXPECT_EQ(session.opened, session.thrown == 0) << what;
    // A rule that is not added is not deleted: its neighbour is.
    EXPECT_TRUE(!session.opened || session.writes + 1 >= healthy.writes) << what;
  }
}

}  // namespace
}  // namespace vmgv

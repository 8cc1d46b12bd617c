// A user across the border between two modules of one program: a host that plays scripts, and the library
// whose dialogs they work in. Each module may have a run time of its own, so no exception crosses: a failure
// comes as its text. Forms and controls cross as they are, which makes both modules parts of the same build.
#pragma once

#include "frontends/user/user.h"

namespace vmgv {

struct UserAct {
  enum class Kind {
    Click,
    DoubleClick,
    DoubleClickEntry,
    Choose,
    Enter,
    Press,
    Focus,
    Resize,
    CloseWindow,
    Answer,
    Pick,
    PickColour,
    Picture
  };
  Kind kind = Kind::Click;
  Control* control = nullptr;
  int number = 0;                   // the entry, the key or the message's result
  int shift = 0;                    // of a key
  Size size = {};                   // of a window
  std::optional<std::string> text;  // typed, or a path
  std::optional<Colour> colour = {};
};

struct ActFailure {
  std::int32_t number = 0;  // of the Error; 0: CannotDo
  std::string text;
};

class UserLink {
 public:
  virtual ~UserLink() = default;
  virtual Form* form() noexcept = 0;
  virtual const Box* box() noexcept = 0;
  virtual Control* focused() noexcept = 0;
  virtual IdleHandler* setIdleHandler(IdleHandler* handler) noexcept = 0;
  virtual std::optional<ActFailure> act(const UserAct& act) noexcept = 0;
};

// The near end, in the module that has the user, whom it does not own.
class UserLinkTo final : public UserLink {
 public:
  explicit UserLinkTo(User& user) noexcept : user_(user) {}

  Form* form() noexcept override { return user_.form(); }
  const Box* box() noexcept override { return user_.box(); }
  Control* focused() noexcept override { return user_.focused(); }
  IdleHandler* setIdleHandler(IdleHandler* handler) noexcept override {
    return user_.setIdleHandler(handler);
  }
  std::optional<ActFailure> act(const UserAct& act) noexcept override;

 private:
  User& user_;
};

// The far end: a user as everywhere else. The link outlives it.
class LinkedUser : public User {
 public:
  explicit LinkedUser(UserLink& link) noexcept : link_(link) {}

  Form* form() override { return link_.form(); }
  const Box* box() override { return link_.box(); }
  void click(Control& control) override { act({UserAct::Kind::Click, &control}); }
  void doubleClick(Control& control) override { act({UserAct::Kind::DoubleClick, &control}); }
  void doubleClick(Control& list, int entry) override {
    act({UserAct::Kind::DoubleClickEntry, &list, entry});
  }
  void choose(Control& control, int entry) override { act({UserAct::Kind::Choose, &control, entry}); }
  void enter(Control& control, const std::string& text) override;
  void press(Control& control, Key key, int shift) override;
  void focus(Control& control) override { act({UserAct::Kind::Focus, &control}); }
  Control* focused() override { return link_.focused(); }
  void resize(Size size) override;
  void closeWindow() override { act({UserAct::Kind::CloseWindow}); }
  void answer(MessageResult result) override;
  void pick(const std::optional<std::string>& path) override;
  void chooseColour(const std::optional<Colour>& colour) override;
  IdleHandler* setIdleHandler(IdleHandler* handler) noexcept override {
    return link_.setIdleHandler(handler);
  }
  void picture(const std::string& path) override;

 private:
  void act(const UserAct& act);

  UserLink& link_;
};

}  // namespace vmgv

// Who plays scripts on gridhost.exe: the user of the control's dialogs, and of the boxes that the host itself
// shows over them when its grid is printed.
#pragma once

#include "frontends/user/user_link.h"
#include "frontends/win32/win32_desktop.h"

namespace vmgv {

class HostUser final : public LinkedUser {
 public:
  // Both outlive it.
  HostUser(UserLink& dialogs, Win32Desktop& own) noexcept : LinkedUser(dialogs), own_(own) {}

  Form* form() override { return own_.box() ? nullptr : LinkedUser::form(); }
  const Box* box() override { return own_.box() ? own_.box() : LinkedUser::box(); }
  void answer(MessageResult result) override {
    own_.box() ? own_.answer(result) : LinkedUser::answer(result);
  }
  void picture(const std::string& path) override {
    own_.box() ? own_.picture(path) : LinkedUser::picture(path);
  }
  IdleHandler* setIdleHandler(IdleHandler* handler) noexcept override {
    own_.setIdleHandler(handler);
    return LinkedUser::setIdleHandler(handler);
  }

 private:
  Win32Desktop& own_;
};

}  // namespace vmgv

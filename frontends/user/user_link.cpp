#include "frontends/user/user_link.h"

#include "support/automation/error.h"

namespace vmgv {
namespace {

void carryOut(User& user, const UserAct& act) {
  switch (act.kind) {
    case UserAct::Kind::Click: return user.click(*act.control);
    case UserAct::Kind::DoubleClick: return user.doubleClick(*act.control);
    case UserAct::Kind::DoubleClickEntry: return user.doubleClick(*act.control, act.number);
    case UserAct::Kind::Choose: return user.choose(*act.control, act.number);
    case UserAct::Kind::Enter: return user.enter(*act.control, *act.text);
    case UserAct::Kind::Press: return user.press(*act.control, static_cast<Key>(act.number), act.shift);
    case UserAct::Kind::Focus: return user.focus(*act.control);
    case UserAct::Kind::Resize: return user.resize(act.size);
    case UserAct::Kind::CloseWindow: return user.closeWindow();
    case UserAct::Kind::Answer: return user.answer(static_cast<MessageResult>(act.number));
    case UserAct::Kind::Pick: return user.pick(act.text);
    case UserAct::Kind::PickColour: return user.chooseColour(act.colour);
    case UserAct::Kind::Picture: return user.picture(*act.text);
  }
}

}  // namespace

std::optional<ActFailure> UserLinkTo::act(const UserAct& act) noexcept {
  try {
    carryOut(user_, act);
    return {};
  } catch (const Error& error) {
    return ActFailure{error.number(), error.description()};
  } catch (const std::exception& error) {
    return ActFailure{0, error.what()};
  }
}

void LinkedUser::act(const UserAct& act) {
  const std::optional<ActFailure> failure = link_.act(act);
  if (!failure) return;
  if (failure->number == 0) throw CannotDo(failure->text);
  throw Error(failure->number, failure->text);
}

void LinkedUser::enter(Control& control, const std::string& text) {
  act({.kind = UserAct::Kind::Enter, .control = &control, .text = text});
}

void LinkedUser::press(Control& control, Key key, int shift) {
  act({.kind = UserAct::Kind::Press, .control = &control, .number = static_cast<int>(key), .shift = shift});
}

void LinkedUser::resize(Size size) { act({.kind = UserAct::Kind::Resize, .size = size}); }

void LinkedUser::answer(MessageResult result) {
  act({.kind = UserAct::Kind::Answer, .number = static_cast<int>(result)});
}

void LinkedUser::pick(const std::optional<std::string>& path) {
  act({.kind = UserAct::Kind::Pick, .text = path});
}

void LinkedUser::chooseColour(const std::optional<Colour>& colour) {
  act({.kind = UserAct::Kind::PickColour, .colour = colour});
}

void LinkedUser::picture(const std::string& path) { act({.kind = UserAct::Kind::Picture, .text = path}); }

}  // namespace vmgv

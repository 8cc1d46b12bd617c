// Modal life without a screen.
#include "frontends/headless/headless_desktop.h"

#include <algorithm>

#include "frontends/headless/natural_size.h"
#include "frontends/user/tab_order.h"
#include "support/automation/error.h"

namespace vmgv {
namespace {

constexpr int kAlreadyShown = 400;
constexpr int kTwipsPerInch = 1440;

}  // namespace

class HeadlessDesktop::OnTop {
 public:
  OnTop(std::vector<Shown>& stack, Shown shown) : stack_(stack) { stack_.push_back(shown); }
  OnTop(const OnTop&) = delete;
  OnTop& operator=(const OnTop&) = delete;
  ~OnTop() { stack_.pop_back(); }

 private:
  std::vector<Shown>& stack_;
};

void HeadlessDesktop::showModal(Form& form) {
  const auto same = [&form](const Shown& shown) { return shown.form == &form; };
  if (std::any_of(shown_.begin(), shown_.end(), same)) {
    throw Error(kAlreadyShown, form.name() + " is already shown");
  }
  const OnTop place(shown_, {&form, nullptr});
  form.focusMoved(form.initialFocus ? form.initialFocus : nextStop(form, nullptr));
  if (form.activeControl()) form.activeControl()->gainFocus();
  while (form.isOpen()) {
    if (somebodyActs()) continue;
    form.closeByUser();
    if (!form.isOpen()) break;
    form.close();
    throw Error(ErrorNumber::InvalidCall, form.name() + " does not let itself be closed");
  }
}

MessageResult HeadlessDesktop::messageBox(const std::string& text, MessageStyle style,
                                          const std::string& title) {
  OpenBox open;
  open.box = {Box::Kind::Message, title, text, style, {}};
  open.result = style == MessageStyle::Question ? MessageResult::No : MessageResult::Ok;
  waitFor(open);
  return open.result;
}

std::optional<std::string> HeadlessDesktop::pickFile(const FileRequest& request) {
  OpenBox open;
  open.box = {Box::Kind::File, request.title, {}, {}, request};
  waitFor(open);
  return open.path;
}

std::optional<Colour> HeadlessDesktop::pickColour(Colour initial) {
  OpenBox open;
  open.box = {.kind = Box::Kind::Palette, .colour = initial};
  waitFor(open);
  return open.colour;
}

bool HeadlessDesktop::confirm(Box::Kind kind) {
  OpenBox open;
  open.box.kind = kind;
  open.result = MessageResult::Cancel;
  waitFor(open);
  return open.result == MessageResult::Ok;
}

void HeadlessDesktop::waitFor(OpenBox& box) {
  boxes_.push_back(box.box);
  const OnTop place(shown_, {nullptr, &box});
  while (!box.answered && somebodyActs()) {
  }
}

Size HeadlessDesktop::naturalSize(const Control& control) { return naturalSizeOf(control, pixel().width); }
Insets HeadlessDesktop::insets(const Container& container) { return insetsOf(container, pixel().width); }

Size HeadlessDesktop::workArea() {
  constexpr int kWidth = 1280, kHeight = 960;
  return {kWidth * pixel().width, kHeight * pixel().height};
}

Size HeadlessDesktop::pixel() const {
  const int twips = kTwipsPerInch / pixelsPerInch_;
  return {twips, twips};
}

}  // namespace vmgv

// Controls that only show: labels, rules and progress bars.
#include <windows.h>

#include <commctrl.h>

#include "frontends/com/text.h"
#include "frontends/win32/binding.h"

namespace vmgv {
namespace {

// Static windows look the same either way, and those of Wine's common controls lose memory with their font.
constexpr bool kPlain = true;

class LabelBinding final : public BindingOf<Label> {
 public:
  LabelBinding(Label& label, HWND parent)
      : BindingOf(label, parent, {L"STATIC", SS_LEFTNOWORDWRAP | SS_NOPREFIX | WS_GROUP, 0, kPlain}) {}

 protected:
  void followContent() override { showText(wide(control_.caption())); }
};

class LineBinding final : public BindingOf<Line> {
 public:
  LineBinding(Line& line, HWND parent) : BindingOf(line, parent, {L"STATIC", SS_ETCHEDHORZ, 0, kPlain}) {}

 protected:
  void followContent() override {}
};

class ProgressBinding final : public BindingOf<ProgressBar> {
 public:
  ProgressBinding(ProgressBar& bar, HWND parent) : BindingOf(bar, parent, {PROGRESS_CLASSW}) {}

 protected:
  void followContent() override {
    send(PBM_SETRANGE32, 0, control_.maximum());
    send(PBM_SETPOS, static_cast<WPARAM>(control_.value()));
  }
};

}  // namespace

std::unique_ptr<Binding> bind(Label& label, HWND parent) {
  return std::make_unique<LabelBinding>(label, parent);
}
std::unique_ptr<Binding> bind(Line& line, HWND parent) { return std::make_unique<LineBinding>(line, parent); }
std::unique_ptr<Binding> bind(ProgressBar& bar, HWND parent) {
  return std::make_unique<ProgressBinding>(bar, parent);
}

}  // namespace vmgv

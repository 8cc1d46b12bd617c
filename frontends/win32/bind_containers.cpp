// Frames, and the invisible boxes that group option buttons.
#include "frontends/win32/binding.h"

namespace vmgv {
namespace {

class FrameBinding final : public BindingOf<Frame> {
 public:
  FrameBinding(Frame& frame, HWND parent)
      : BindingOf(frame, parent, {L"BUTTON", BS_GROUPBOX | WS_GROUP, WS_EX_TRANSPARENT}) {}

 protected:
  void followContent() override { showText(plainCaption(control_.caption())); }
};

// Shows nothing; it has a window only as every control has one.
class PictureBinding final : public BindingOf<PictureBox> {
 public:
  PictureBinding(PictureBox& box, HWND parent)
      : BindingOf(box, parent, {L"STATIC", WS_GROUP, WS_EX_TRANSPARENT, true}) {}

 protected:
  void followContent() override {}
  void place(const RECT& pixels, const Units&) override {
    SetWindowPos(window(), nullptr, pixels.left, pixels.top, 0, 0, SWP_NOZORDER | SWP_NOACTIVATE);
  }
};

}  // namespace

std::unique_ptr<Binding> bind(Frame& frame, HWND parent) {
  return std::make_unique<FrameBinding>(frame, parent);
}
std::unique_ptr<Binding> bind(PictureBox& box, HWND parent) {
  return std::make_unique<PictureBinding>(box, parent);
}

}  // namespace vmgv

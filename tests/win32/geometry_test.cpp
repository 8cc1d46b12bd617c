// Nothing is clipped, in long captions, large fonts and at every density.
#include "frontends/com/text.h"
#include "tests/win32/fixture.h"

namespace vmgv {
namespace {

RECT onDialog(HWND window) {
  RECT box{};
  GetWindowRect(window, &box);
  MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&box), 2);
  return box;
}

// The text of a window as the window draws it, measured by itself.
SIZE drawn(HWND window) {
  const HDC dc = GetDC(window);
  const HGDIOBJ before = SelectObject(dc, reinterpret_cast<HGDIOBJ>(SendMessageW(window, WM_GETFONT, 0, 0)));
  const std::wstring text = textOf(window);
  RECT box{};
  DrawTextW(dc, text.empty() ? L"X" : text.c_str(), -1, &box, DT_CALCRECT);
  SelectObject(dc, before);
  ReleaseDC(window, dc);
  return {text.empty() ? 0 : box.right, box.bottom};
}

}  // namespace

struct Geometry : Win32Test {
  void expectNothingClipped(const Form& form) {
    RECT inside{}, common{}, client{};
    GetClientRect(dialog(), &inside);
    for (const auto& control : form.controls()) {
      const Control* const shown = control.get();
      if (dynamic_cast<const PictureBox*>(shown)) continue;  // shows nothing
      const HWND window = windowOf(*shown);
      const RECT box = onDialog(window);
      EXPECT_TRUE(IntersectRect(&common, &box, &inside) && EqualRect(&common, &box)) << shown->address();
      if (dynamic_cast<const Container*>(shown)) continue;
      GetClientRect(window, &client);
      const SIZE text = drawn(window);
      EXPECT_TRUE(client.right >= text.cx && client.bottom >= text.cy) << shown->address();
    }
  }
};

TEST_F(Geometry, CaptionsFitAtEverySize) {
  for (const double points : {9.0, 18.0}) {
    SampleForm form;
    Font font{.name = "DejaVu Sans", .size = points, .charset = 161};
    form.setFont(font);
    for (const auto& control : form.controls()) {
      control->setFont(font);
      if (points > 9 && !control->caption().empty())
        control->setCaption(control->caption() + " και μεγαλύτερο");
    }
    play(form, {[&] { expectNothingClipped(form); }});
  }
}

// As where a dialog is moved to a monitor of another density.
TEST_F(Geometry, ADialogFollowsTheDensityOfItsMonitor) {
  SampleForm form;
  const auto moveTo = [&](WORD dpi) {
    RECT proposed{};
    GetWindowRect(dialog(), &proposed);
    SendMessageW(dialog(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&proposed));
    expectNothingClipped(form);
    RECT inside{};
    GetClientRect(dialog(), &inside);
    return inside.right;
  };
  play(form, {[&] {
         const LONG at96 = moveTo(96), at144 = moveTo(144), at192 = moveTo(192);
         EXPECT_NEAR(at144, at96 * 1.5, at96 * 0.1);
         EXPECT_NEAR(at192, at96 * 2, at96 * 0.1);
         EXPECT_EQ(moveTo(96), at96);
       }});
}

}  // namespace vmgv

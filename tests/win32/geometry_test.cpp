// Nothing is clipped and nothing overlaps, in long captions, large fonts and at every density.
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
    RECT inside{};
    GetClientRect(dialog(), &inside);
    for (const auto& control : form.controls()) {
      if (dynamic_cast<const PictureBox*>(control.get())) continue;  // shows nothing
      const HWND window = windowOf(*control);
      const RECT box = onDialog(window);
      RECT common{};
      EXPECT_TRUE(IntersectRect(&common, &box, &inside) && EqualRect(&common, &box)) << control->address();
      if (dynamic_cast<const Container*>(control.get())) continue;
      if (!dynamic_cast<const Line*>(control.get()) && !dynamic_cast<const ProgressBar*>(control.get())) {
        RECT client{};
        GetClientRect(window, &client);
        const SIZE text = drawn(window);
        if (!dynamic_cast<const TextBox*>(control.get())) {
          EXPECT_GE(client.right, text.cx) << control->address();
        }
        EXPECT_GE(client.bottom, text.cy) << control->address();
      }
      for (const auto& other : form.controls()) {
        if (other == control || dynamic_cast<const Container*>(other.get())) continue;
        const RECT otherBox = onDialog(windowOf(*other));
        EXPECT_FALSE(IntersectRect(&common, &box, &otherBox))
            << control->address() << " lies over " << other->address();
      }
    }
  }
};

TEST_F(Geometry, CaptionsFitAtEverySize) {
  for (const double points : {9.0, 18.0}) {
    for (const char* longer : {"", " ακόμη μεγαλύτερο"}) {
      SampleForm form;
      Font font{.name = "DejaVu Sans", .size = points, .charset = 161};
      form.setFont(font);
      for (const auto& control : form.controls()) {
        control->setFont(font);
        if (!control->caption().empty()) control->setCaption(control->caption() + longer);
      }
      SCOPED_TRACE(points);
      play(form, {[&] { expectNothingClipped(form); }});
    }
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

TEST_F(Geometry, ListsShowTenEntries) {
  SampleForm form;
  for (int entry = 0; entry < 40; ++entry) form.combo.addItem("a rather long entry " + std::to_string(entry));
  play(form, {[&] {
         const HWND combo = windowOf(form.combo);
         const RECT closed = onDialog(combo);
         EXPECT_EQ(closed.bottom - closed.top,
                   onDialog(windowOf(form.text)).bottom - onDialog(windowOf(form.text)).top)
             << "as high as a field";
         SendMessageW(combo, CB_SHOWDROPDOWN, TRUE, 0);
         COMBOBOXINFO info{.cbSize = sizeof info};
         ASSERT_TRUE(GetComboBoxInfo(combo, &info));
         RECT list{};
         GetClientRect(info.hwndList, &list);
         EXPECT_EQ(list.bottom / SendMessageW(combo, CB_GETITEMHEIGHT, 0, 0), 10);
       }});
}

}  // namespace vmgv

// A field that shows a colour, with a button at its end; as one button, since all of it does the same.
#include <windows.h>

#include <commctrl.h>

#include "frontends/win32/binding.h"
#include "frontends/win32/surface.h"
#include "support/forms/colour_field.h"

namespace vmgv {
namespace {

class ColourBinding final : public BindingOf<ColourField> {
 public:
  ColourBinding(ColourField& field, HWND parent)
      : BindingOf(field, parent, {L"BUTTON", BS_PUSHBUTTON | BS_NOTIFY | WS_TABSTOP | WS_GROUP}) {}

  void notified(int code) override {
    if (code == BN_CLICKED || code == BN_DOUBLECLICKED) control_.click();
  }

  LRESULT customDraw(const NMCUSTOMDRAW& draw) const override {
    if (draw.dwDrawStage != CDDS_PREPAINT) return CDRF_DODEFAULT;
    constexpr int kGap = 2, kBorder = 3;
    const bool disabled = draw.uItemState & CDIS_DISABLED;
    const int side = draw.rc.bottom - draw.rc.top;
    RECT field = draw.rc, button = draw.rc;
    button.left = draw.rc.right - side;
    field.right = button.left - kGap;
    fill(draw.hdc, draw.rc, GetSysColor(COLOR_BTNFACE));
    drawField(window(), draw.hdc, field, !disabled);
    if (!disabled && control_.swatch() != colourOf(SystemColour::Window)) {
      InflateRect(&field, -kBorder, -kBorder);
      fill(draw.hdc, field, screenColour(control_.swatch()));
    }
    drawButton(window(), draw.hdc, button, lookOf(draw.uItemState));
    SetBkMode(draw.hdc, TRANSPARENT);
    SetTextColor(draw.hdc, GetSysColor(disabled ? COLOR_GRAYTEXT : COLOR_BTNTEXT));
    DrawTextW(draw.hdc, L"...", 3, &button, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    drawFocus(draw.hdc, button, draw.uItemState);
    return CDRF_SKIPDEFAULT;
  }

 protected:
  void followContent() override {
    // For assistive technology.
    showText(plainCaption(control_.accessibleName() + " " + control_.swatchText()));
    InvalidateRect(window(), nullptr, TRUE);
  }
};

}  // namespace

std::unique_ptr<Binding> bind(ColourField& field, HWND parent) {
  return std::make_unique<ColourBinding>(field, parent);
}

}  // namespace vmgv

// Buttons of toolbars: those that act, and those that stay pressed.
#include <windows.h>

#include <commctrl.h>

#include <cmath>

#include "frontends/win32/binding.h"
#include "frontends/win32/paint.h"
#include "frontends/win32/surface.h"
#include "support/forms/tool_picture.h"

namespace vmgv {
namespace {

using Picture = ToolButton::Picture;

constexpr DWORD kToggleStyle = BS_3STATE | BS_PUSHLIKE, kPushStyle = BS_PUSHBUTTON | BS_NOTIFY;
constexpr int kPictureShare = 67;  // percent of the button's height
constexpr int kFaint = 40;         // percent of the text's colour in a sign that nobody has set

void drawLetter(HDC context, Picture picture, RECT area, COLORREF colour) noexcept {
  LOGFONTW look{};
  GetObjectW(GetCurrentObject(context, OBJ_FONT), sizeof look, &look);
  if (picture == Picture::Bold) look.lfWeight = FW_BOLD;
  look.lfItalic = picture == Picture::Italic;
  look.lfUnderline = picture == Picture::Underline;
  look.lfStrikeOut = picture == Picture::Strikeout;
  const HFONT font = CreateFontIndirectW(&look);
  const HGDIOBJ before = SelectObject(context, font);
  SetBkMode(context, TRANSPARENT);
  SetTextColor(context, colour);
  const auto letter = static_cast<wchar_t>(*letterOf(picture));
  DrawTextW(context, &letter, 1, &area, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
  SelectObject(context, before);
  DeleteObject(font);
}

// As fine as the lines are, steps would show: they are drawn larger on a copy of what lies below.
void drawStrokes(HDC context, std::span<const ToolStroke> strokes, const RECT& square, COLORREF colour) {
  constexpr int kFiner = 4;
  const int side = square.right - square.left, fine = side * kFiner;
  const MemoryBitmap large(context, {fine, fine});
  const HDC canvas = large.context();
  StretchBlt(canvas, 0, 0, fine, fine, context, square.left, square.top, side, side, SRCCOPY);
  const float unit = static_cast<float>(fine) / kToolSquare;
  const LOGBRUSH solid{BS_SOLID, colour, 0};
  const HPEN pen = ExtCreatePen(PS_GEOMETRIC | PS_SOLID | PS_ENDCAP_SQUARE | PS_JOIN_MITER,
                                static_cast<DWORD>(kToolStroke * unit), &solid, 0, nullptr);
  const HGDIOBJ penBefore = SelectObject(canvas, pen);
  SetDCBrushColor(canvas, colour);
  for (const ToolStroke& stroke : strokes) {
    std::vector<POINT> points;
    for (const auto& [x, y] : stroke.points) points.push_back({std::lround(x * unit), std::lround(y * unit)});
    SelectObject(canvas, GetStockObject(stroke.filled ? DC_BRUSH : HOLLOW_BRUSH));
    (stroke.closed ? Polygon : Polyline)(canvas, points.data(), static_cast<int>(points.size()));
  }
  SelectObject(canvas, penBefore);
  DeleteObject(pen);
  SetStretchBltMode(context, HALFTONE);
  SetBrushOrgEx(context, 0, 0, nullptr);
  StretchBlt(context, square.left, square.top, side, side, canvas, 0, 0, fine, fine, SRCCOPY);
}

void drawPicture(HDC context, Picture picture, const RECT& area, COLORREF colour) {
  if (letterOf(picture)) return drawLetter(context, picture, area, colour);
  const LONG side = (area.bottom - area.top) * kPictureShare / 100;
  const LONG left = (area.left + area.right - side) / 2, top = (area.top + area.bottom - side) / 2;
  drawStrokes(context, strokesOf(picture), {left, top, left + side, top + side}, colour);
}

// One that stays pressed is a check box with a third state to assistive technology. To the eye it is a button
// that is pressed, raised, or where nobody has decided only a faint sign.
class ToolBinding final : public BindingOf<ToolButton> {
 public:
  ToolBinding(ToolButton& button, HWND parent)
      : BindingOf(button, parent,
                  {L"BUTTON", WS_TABSTOP | WS_GROUP | (button.toggles ? kToggleStyle : kPushStyle)}) {}

  void notified(int code) override {
    if (code == BN_CLICKED || code == BN_DOUBLECLICKED) control_.click();
  }

  LRESULT customDraw(const NMCUSTOMDRAW& draw) const override {
    if (control_.picture == Picture::None || draw.dwDrawStage != CDDS_PREPAINT) return CDRF_DODEFAULT;
    const bool notSet = control_.toggles && control_.state() == ToolButton::State::NotSet;
    const bool on = control_.toggles && control_.state() == ToolButton::State::On;
    const COLORREF face = GetSysColor(COLOR_BTNFACE);
    if (notSet && !(draw.uItemState & CDIS_SELECTED)) {
      fill(draw.hdc, draw.rc, face);
    } else {
      drawButton(window(), draw.hdc, draw.rc, on ? ButtonLook::Pressed : lookOf(draw.uItemState));
    }
    const COLORREF text = GetSysColor(draw.uItemState & CDIS_DISABLED ? COLOR_GRAYTEXT : COLOR_BTNTEXT);
    drawPicture(draw.hdc, control_.picture, draw.rc, notSet ? mixed(text, face, kFaint) : text);
    drawFocus(draw.hdc, draw.rc, draw.uItemState);
    return CDRF_SKIPDEFAULT;
  }

 protected:
  // The words under a picture are for assistive technology.
  void followContent() override {
    const bool words = control_.picture == Picture::None;
    showText(plainCaption(words ? control_.caption() : control_.accessibleName()));
    if (!control_.toggles) return;
    const WPARAM state = control_.state() == ToolButton::State::NotSet ? BST_INDETERMINATE
                         : control_.state() == ToolButton::State::On   ? BST_CHECKED
                                                                       : BST_UNCHECKED;
    if (static_cast<WPARAM>(send(BM_GETCHECK)) != state) send(BM_SETCHECK, state);
  }
};

}  // namespace

std::unique_ptr<Binding> bind(ToolButton& button, HWND parent) {
  return std::make_unique<ToolBinding>(button, parent);
}

}  // namespace vmgv

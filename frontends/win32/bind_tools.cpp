// Buttons of toolbars: those that act, and those that stay pressed.
#include <windows.h>

#include <commctrl.h>

#include "frontends/win32/binding.h"
#include "frontends/win32/surface.h"
#include "support/forms/tool_button.h"

namespace vmgv {
namespace {

using Picture = ToolButton::Picture;

constexpr DWORD kToggleStyle = BS_3STATE | BS_PUSHLIKE, kPushStyle = BS_PUSHBUTTON | BS_NOTIFY;
constexpr int kFaint = 40;  // percent of the text's colour in a sign that nobody has set

void drawCross(HDC context, const RECT& around, COLORREF colour) noexcept {
  const int side = (around.bottom - around.top) / 3, thick = (side + 4) / 5;
  const int left = (around.left + around.right - side) / 2, top = (around.top + around.bottom - side) / 2;
  const HPEN pen = CreatePen(PS_SOLID, thick, colour);
  const HGDIOBJ before = SelectObject(context, pen);
  MoveToEx(context, left, top, nullptr);
  LineTo(context, left + side, top + side);
  MoveToEx(context, left + side, top, nullptr);
  LineTo(context, left, top + side);
  SelectObject(context, before);
  DeleteObject(pen);
}

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
  const wchar_t* const letter = picture == Picture::Bold        ? L"B"
                                : picture == Picture::Italic    ? L"I"
                                : picture == Picture::Underline ? L"U"
                                                                : L"S";
  DrawTextW(context, letter, 1, &area, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
  SelectObject(context, before);
  DeleteObject(font);
}

void drawPicture(HDC context, Picture picture, const RECT& area, COLORREF colour) noexcept {
  switch (picture) {
    case Picture::None: return;
    case Picture::Delete: return drawCross(context, area, colour);
    case Picture::Bold:
    case Picture::Italic:
    case Picture::Underline:
    case Picture::Strikeout: return drawLetter(context, picture, area, colour);
  }
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

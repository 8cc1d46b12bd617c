#include "frontends/win32grid/row_tips.h"

#include <commctrl.h>

namespace vmgv {
namespace {

constexpr UINT_PTR kHover = 1, kShown = 2;
constexpr int kWidest = 480;  // pixels of a usual monitor; longer lines are broken

}  // namespace

RowTips::RowTips(HWND rows)
    : rows_(rows),
      tips_(CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, L"", WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0,
                            0, 0, 0, rows, nullptr, nullptr, nullptr)) {
  const int width = MulDiv(kWidest, static_cast<int>(GetDpiForWindow(rows)), USER_DEFAULT_SCREEN_DPI);
  SendMessageW(tips_, TTM_SETMAXTIPWIDTH, 0, width);
  std::wstring nothing;
  send(TTM_ADDTOOLW, kHover, TTF_SUBCLASS, {}, nothing);
  send(TTM_ADDTOOLW, kShown, TTF_TRACK | TTF_ABSOLUTE, {}, nothing);
}

void RowTips::send(UINT message, UINT_PTR tool, UINT flags, const RECT& row,
                   std::wstring& text) const noexcept {
  TTTOOLINFOW info{};
  info.cbSize = TTTOOLINFOW_V2_SIZE;  // which every version of the controls knows
  info.uFlags = flags;
  info.hwnd = rows_;
  info.uId = tool;
  info.rect = row;
  info.lpszText = text.data();
  const WPARAM active = message == TTM_TRACKACTIVATE && !text.empty();
  SendMessageW(tips_, message, active, reinterpret_cast<LPARAM>(&info));
}

void RowTips::hover(const RECT& row, std::wstring text) {
  send(TTM_NEWTOOLRECTW, kHover, TTF_SUBCLASS, row, text);
  send(TTM_UPDATETIPTEXTW, kHover, TTF_SUBCLASS, row, text);
}

void RowTips::show(POINT screen, std::wstring text) {
  send(TTM_UPDATETIPTEXTW, kShown, TTF_TRACK | TTF_ABSOLUTE, {}, text);
  SendMessageW(tips_, TTM_TRACKPOSITION, 0, MAKELPARAM(screen.x, screen.y));
  send(TTM_TRACKACTIVATE, kShown, TTF_TRACK | TTF_ABSOLUTE, {}, text);
}

void RowTips::hide() const noexcept {
  std::wstring nothing;
  send(TTM_TRACKACTIVATE, kShown, TTF_TRACK | TTF_ABSOLUTE, {}, nothing);
}

}  // namespace vmgv

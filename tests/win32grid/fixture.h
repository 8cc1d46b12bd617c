// A list of forty rows in a host's window, and the hands that act on it.
#pragma once

#include "frontends/com/text.h"
#include "frontends/win32/gestures.h"
#include "frontends/win32/window_walk.h"
#include "frontends/win32grid/list_grid.h"
#include "tests/grid/fixture.h"
#include "tests/win32/fixture.h"

namespace vmgv {

using gestures::HeldKeys;

inline void mouse(HWND window, UINT message, POINT at) {
  SendMessageW(window, message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON, MAKELPARAM(at.x, at.y));
}

inline void click(HWND window, POINT at, int shift = 0) {
  const HeldKeys held(shift);
  mouse(window, WM_LBUTTONDOWN, at);
  mouse(window, WM_LBUTTONUP, at);
}

inline void drag(HWND window, POINT from, POINT to) {
  mouse(window, WM_LBUTTONDOWN, from);
  for (int step = 1; step <= 8; ++step) {
    mouse(window, WM_MOUSEMOVE, {from.x + (to.x - from.x) * step / 8, from.y + (to.y - from.y) * step / 8});
  }
  mouse(window, WM_LBUTTONUP, to);
}

inline std::vector<std::vector<Value>> sampleRows() {
  std::vector<std::vector<Value>> rows;
  for (int i = 0; i < 40; ++i) {
    rows.push_back({i % 2 == 0 ? "Athens" : "Volos", i % 4 < 2 ? "lamp" : "desk", i * 1.5,
                    "note " + std::to_string(i) + "\nsecond\nthird"});
  }
  return rows;
}

struct ListGridTest : testing::Test {
  ListGridTest() {
    place(list.window(), 0, 0, px(480), px(260));
    SetFocus(list.window());
  }
  int px(int pixels) { return MulDiv(pixels, static_cast<int>(GetDpiForWindow(list.window())), 96); }
  HWND rows() { return list.rows().window(); }
  HWND header() { return list.header().window(); }
  RECT rowRect(int position) { return list.rows().rectOf(position); }
  POINT inRow(int position, int x) { return {x, rowRect(position).top + 4}; }
  int height(int position) { return rowRect(position).bottom - rowRect(position).top; }
  POINT headerPoint(int item) {
    RECT rect{};
    Header_GetItemRect(header(), item, &rect);
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
  }
  int headerWidth(int item) {
    RECT rect{};
    Header_GetItemRect(header(), item, &rect);
    return rect.right - rect.left;
  }
  std::vector<HWND> chips() {
    std::vector<HWND> shown;
    for (HWND chip = GetWindow(list.box().window(), GW_CHILD); chip; chip = GetWindow(chip, GW_HWNDNEXT)) {
      if (IsWindowVisible(chip)) shown.insert(shown.begin(), chip);
    }
    std::sort(shown.begin(), shown.end(), [](HWND a, HWND b) { return leftOf(a) < leftOf(b); });
    return shown;
  }
  static LONG leftOf(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    return rect.left;
  }
  void showBox() {
    engine->changeSettings([](GridSettings& settings) { settings.groupByBoxVisible = true; });
  }
  // Where the focus is; '*', '/', '+' and '-' are typed.
  // What stands beside the current row; "" for nothing.
  std::wstring tip() {
    std::wstring text;
    eachThreadWindow([&](HWND window) {
      if (GetWindow(window, GW_OWNER) == GetAncestor(rows(), GA_ROOT) && IsWindowVisible(window)) {
        wchar_t buffer[200] = L"";
        TTTOOLINFOW tool{};
        tool.cbSize = TTTOOLINFOW_V2_SIZE;
        tool.hwnd = rows();
        tool.uId = 2;  // the one that a key shows
        tool.lpszText = buffer;
        SendMessageW(window, TTM_GETTEXTW, 200, reinterpret_cast<LPARAM>(&tool));
        text = buffer;
      }
      return true;
    });
    return text;
  }
  void press(int key, int shift = 0) {
    const HeldKeys held(shift);
    const bool typed = std::string("*/+-").find(static_cast<char>(key)) != std::string::npos;
    SendMessageW(GetFocus(), typed ? WM_CHAR : WM_KEYDOWN, static_cast<WPARAM>(key), 1);
    if (key == VK_SPACE) SendMessageW(GetFocus(), WM_KEYUP, VK_SPACE, 1);
  }
  // "1+2-|3-": groups, then sort keys.
  std::string keys() {
    std::string text;
    const auto add = [&](const std::vector<SortKey>& all) {
      for (const SortKey& key : all) text += std::to_string(key.colIndex) + (key.sortOrder > 0 ? "+" : "-");
    };
    add(engine->groups());
    text += '|';
    add(engine->sortKeys());
    return text;
  }
  std::string order() {
    std::string text;
    for (const std::int32_t column : engine->visibleColumns()) text += std::to_string(column);
    return text;
  }

  std::shared_ptr<GridEngine> engine = engineOf({{"City"}, {"Kind"}, {"Price"}, {"Note"}}, sampleRows());
  decltype(hostWindow(L"")) host = hostWindow(L"host");
  ListGrid list{host.get(), engine};
};

}  // namespace vmgv

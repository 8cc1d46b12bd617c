// The pages of a preview, on a desk with their shadow. They are drawn once and kept as pixels: to scroll
// costs a copy.
#include <windows.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <exception>

#include "frontends/com/text.h"
#include "frontends/win32/binding.h"
#include "frontends/win32/gdi_page.h"
#include "frontends/win32/paint.h"
#include "frontends/win32/scopes.h"
#include "frontends/win32/surface.h"
#include "frontends/win32/units.h"
#include "support/forms/page_places.h"

namespace vmgv {
namespace {

constexpr const wchar_t* kClass = L"vmGridViews.pages";
constexpr int kShadow = 3,
              kStep = 24;  // pixels of a usual monitor: the shadow, and what an arrow key scrolls
constexpr LONG kMostPixels = 24 * 1024 * 1024;  // of a page that is kept
constexpr int kTurn = 1;                        // what it tells its parent

class PagesBinding final : public BindingOf<PagePane> {
 public:
  PagesBinding(PagePane& pane, HWND parent)
      : BindingOf(pane, parent, {registeredClass(), WS_TABSTOP | WS_GROUP | WS_VSCROLL | WS_HSCROLL}) {
    SetWindowLongPtrW(window(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  }
  // A library that goes takes its procedure along: the class stays as long as windows of it.
  ~PagesBinding() override {
    if (IsWindow(window())) SetWindowLongPtrW(window(), GWLP_USERDATA, 0);
    UnregisterClassW(kClass, thisModule());
  }

  void notified(int code) override {
    if (code == kTurn) control_.turnTo(wanted_);
  }

 protected:
  void followContent() override {
    showText(wide(control_.accessibleName()));
    if (std::exchange(page_, control_.page()) != page_) origin_.y = landAtEnd_ ? LONG_MAX : 0;
    landAtEnd_ = false;
  }
  void place(const RECT& pixels, const Units& units) override {
    dpi_ = units.dpi();
    Binding::place(pixels, units);
    arrange();
  }

 private:
  struct Kept {
    std::int32_t page = 0;
    SIZE size{};
    std::unique_ptr<MemoryBitmap> pixels;
  };

  static const wchar_t* registeredClass() {
    WNDCLASSEXW look{};
    look.cbSize = sizeof look;
    look.lpfnWndProc = procedure;
    look.hInstance = thisModule();
    look.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    look.lpszClassName = kClass;
    RegisterClassExW(&look);  // refused where it is known
    return kClass;
  }

  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    auto* const self = reinterpret_cast<PagesBinding*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    try {
      if (self && self->handle(message, wParam)) return 0;
    } catch (const std::exception& error) {
      OutputDebugStringW(wide(error.what()).c_str());
      return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
  }

  bool handle(UINT message, WPARAM wParam) {
    switch (message) {
      case WM_PAINT: {
        const PaintScope scope(window());
        paint(scope.context());
        return true;
      }
      case WM_PRINTCLIENT: paint(reinterpret_cast<HDC>(wParam)); return true;
      case WM_ERASEBKGND: return true;
      case WM_SIZE: arrange(); return true;
      case WM_SETFOCUS:
      case WM_KILLFOCUS:
      case WM_SYSCOLORCHANGE: repaint(); return true;
      case WM_LBUTTONDOWN: SetFocus(window()); return true;
      case WM_VSCROLL:
      case WM_HSCROLL: scrollBar(message == WM_VSCROLL ? SB_VERT : SB_HORZ, LOWORD(wParam)); return true;
      case WM_MOUSEWHEEL: turnWheel(GET_WHEEL_DELTA_WPARAM(wParam)); return true;
      case WM_MOUSEHWHEEL: scrollBy(GET_WHEEL_DELTA_WPARAM(wParam) * step() / WHEEL_DELTA, 0); return true;
      case WM_KEYDOWN: return pressKey(static_cast<int>(wParam));
      default: return false;
    }
  }

  void repaint() const noexcept { InvalidateRect(window(), nullptr, FALSE); }
  int step() const noexcept { return MulDiv(kStep, dpi_, kUsualDpi); }
  SIZE room() const noexcept {
    RECT inside{};
    GetClientRect(window(), &inside);
    return {inside.right, inside.bottom};
  }
  PagePlaces places() const {
    const SIZE size = room();
    return placesOf(control_, size.cx, size.cy, dpi_ / kPointsPerInch);
  }

  bool isZoomed() const noexcept { return control_.viewMode() == ViewMode::ZoomedIn; }

  // Scroll bars come and go with what they scroll, and that with the room that they leave. Where whole pages
  // are in sight the vertical one stands for the pages.
  void arrange() {
    if (std::exchange(arranging_, true)) return;
    RECT own{};
    GetWindowRect(window(), &own);
    const SIZE whole{own.right - own.left, own.bottom - own.top};
    const PagePlaces all = placesOf(control_, whole.cx, whole.cy, dpi_ / kPointsPerInch);
    const SIZE pages{isZoomed() ? std::lround(all.width) : 0, isZoomed() ? std::lround(all.height) : 0};
    const LONG bar = GetSystemMetricsForDpi(SM_CXVSCROLL, static_cast<UINT>(dpi_));
    SIZE left = whole;
    if (pages.cy > left.cy) left.cx -= bar;
    if (pages.cx > left.cx) left.cy -= bar;
    if (left.cx == whole.cx && pages.cy > left.cy) left.cx -= bar;
    origin_ = {std::clamp(origin_.x, 0L, std::max(0L, pages.cx - left.cx)),
               std::clamp(origin_.y, 0L, std::max(0L, pages.cy - left.cy))};
    showBar(SB_HORZ, {.nMax = pages.cx - 1, .nPage = static_cast<UINT>(left.cx), .nPos = origin_.x});
    if (isZoomed()) {
      showBar(SB_VERT, {.nMax = pages.cy - 1, .nPage = static_cast<UINT>(left.cy), .nPos = origin_.y});
    } else {
      showBar(SB_VERT,
              {.nMin = 1, .nMax = std::max(1, control_.count()), .nPage = 1, .nPos = control_.page()});
    }
    arranging_ = false;
    repaint();
  }
  void showBar(int bar, SCROLLINFO info) const noexcept {
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    SetScrollInfo(window(), bar, &info, TRUE);
  }

  // True where there was something to scroll to.
  bool scrollBy(LONG right, LONG down) {
    const POINT before = origin_;
    origin_.x += right;
    origin_.y += down;
    arrange();
    return origin_.x != before.x || origin_.y != before.y;
  }
  void scrollBar(int bar, int request) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    GetScrollInfo(window(), bar, &info);
    int to = info.nPos;
    switch (request) {
      case SB_LINEUP: to -= step(); break;
      case SB_LINEDOWN: to += step(); break;
      case SB_PAGEUP: to -= static_cast<int>(info.nPage); break;
      case SB_PAGEDOWN: to += static_cast<int>(info.nPage); break;
      case SB_THUMBTRACK:
      case SB_THUMBPOSITION: to = info.nTrackPos; break;
      case SB_TOP: to = info.nMin; break;
      case SB_BOTTOM: to = info.nMax; break;
      default: return;
    }
    if (bar == SB_HORZ) {
      scrollBy(to - info.nPos, 0);
    } else if (isZoomed()) {
      scrollBy(0, to - info.nPos);
    } else {
      turn(request == SB_LINEUP ? -1 : request == SB_LINEDOWN ? 1 : to - info.nPos);
    }
  }

  void turn(std::int32_t pages) {
    wanted_ = std::clamp(control_.page() + pages, 1, std::max(control_.count(), 1));
    landAtEnd_ = pages < 0;
    SendMessageW(GetParent(window()), WM_COMMAND, MAKEWPARAM(0, kTurn), reinterpret_cast<LPARAM>(window()));
    landAtEnd_ = false;
  }
  // At the end of a page the next one begins, and before its beginning lies the end of the one before.
  void goDown(LONG pixels) {
    if (!scrollBy(0, pixels)) turn(pixels > 0 ? 1 : -1);
  }
  void turnWheel(int delta) {
    UINT lines = 3;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    const int notches = (wheel_ += delta) / WHEEL_DELTA;
    wheel_ %= WHEEL_DELTA;
    if (!isZoomed()) return notches == 0 ? void() : turn(-notches);
    const LONG pixels = std::min(static_cast<LONG>(std::min(lines, 100U)) * step(), std::max(room().cy, 1L));
    for (int i = std::abs(notches); i > 0; --i) goDown(notches > 0 ? -pixels : pixels);
  }
  bool pressKey(int key) {
    switch (key) {
      case VK_UP: goDown(-step()); return true;
      case VK_DOWN: goDown(step()); return true;
      case VK_LEFT: scrollBy(-step(), 0); return true;
      case VK_RIGHT: scrollBy(step(), 0); return true;
      default: return false;
    }
  }

  void paint(HDC screen) {
    const SIZE size = room();
    const Canvas canvas(screen, size);
    const RECT all{0, 0, size.cx, size.cy};
    fill(canvas.context(), all, GetSysColor(COLOR_APPWORKSPACE));
    const PagePlaces shown = places();
    for (const PagePlace& place : shown.pages) {
      const LONG left = std::lround(place.rect.left) - origin_.x,
                 top = std::lround(place.rect.top) - origin_.y;
      paintPage(canvas.context(), place.page, shown.scale,
                {left, top, left + std::max(std::lround(place.rect.width), 1L),
                 top + std::max(std::lround(place.rect.height), 1L)});
    }
    if (GetFocus() == window()) FrameRect(canvas.context(), &all, GetSysColorBrush(COLOR_HIGHLIGHT));
  }

  void paintPage(HDC context, std::int32_t page, double scale, const RECT& rect) {
    const int shadow = std::max(MulDiv(kShadow, dpi_, kUsualDpi), 1);
    RECT around = rect;
    OffsetRect(&around, shadow, shadow);
    fill(context, around, GetSysColor(COLOR_3DDKSHADOW));
    around = rect;
    InflateRect(&around, 1, 1);
    fill(context, around, GetSysColor(COLOR_WINDOWFRAME));
    const SIZE size{rect.right - rect.left, rect.bottom - rect.top};
    if (const MemoryBitmap* pixels = kept(context, page, scale, size)) {
      BitBlt(context, rect.left, rect.top, size.cx, size.cy, pixels->context(), 0, 0, SRCCOPY);
      return;
    }
    SaveDC(context);
    IntersectClipRect(context, rect.left, rect.top, rect.right, rect.bottom);
    drawPage(context, page, scale, rect);
    RestoreDC(context, -1);
  }

  // Null where the page is too large to be kept.
  const MemoryBitmap* kept(HDC context, std::int32_t page, double scale, SIZE size) {
    if (size.cx > kMostPixels / size.cy) return nullptr;
    if (std::exchange(version_, control_.version()) != control_.version()) kept_ = {};
    Kept& own = kept_[static_cast<std::size_t>(page - control_.page()) % kept_.size()];
    if (!own.pixels || own.page != page || own.size.cx != size.cx || own.size.cy != size.cy) {
      own = {page, size, std::make_unique<MemoryBitmap>(context, size)};
      if (!*own.pixels) {
        own.pixels.reset();
        return nullptr;
      }
      drawPage(own.pixels->context(), page, scale, {0, 0, size.cx, size.cy});
    }
    return own.pixels.get();
  }

  // What goes wrong is written where the page would be: a box would come again with every painting.
  void drawPage(HDC context, std::int32_t page, double scale, RECT rect) {
    fill(context, rect, RGB(255, 255, 255));
    if (std::exchange(drawing_, true)) return;  // the host lets messages in while it hears of the page
    try {
      GdiPage surface(context, {rect.left, rect.top}, scale, fonts_);
      control_.pages()->draw(page, surface);
    } catch (const std::exception& error) {
      InflateRect(&rect, -step(), -step());
      SetTextColor(context, RGB(0, 0, 0));
      SetBkMode(context, TRANSPARENT);
      DrawTextW(context, wide(error.what()).c_str(), -1, &rect, DT_WORDBREAK | DT_NOPREFIX);
    }
    drawing_ = false;
  }

  GdiPageFonts fonts_;
  std::array<Kept, 2> kept_;
  std::uint64_t version_ = 0;
  int dpi_ = kUsualDpi;
  POINT origin_{};                      // what of the desk is at the pane's corner
  std::int32_t page_ = 0, wanted_ = 0;  // that was shown last, and where a hand wants to go
  int wheel_ = 0;                       // what is left of its turns
  bool landAtEnd_ = false, arranging_ = false, drawing_ = false;
};

}  // namespace

std::unique_ptr<Binding> bind(PagePane& pane, HWND parent) {
  return std::make_unique<PagesBinding>(pane, parent);
}

}  // namespace vmgv

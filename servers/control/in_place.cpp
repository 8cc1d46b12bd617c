#include "servers/control/in_place.h"

#include "frontends/com/wall.h"
#include "servers/common/server.h"

namespace vmgv {
namespace {

RECT iconAt(POINT corner) noexcept {
  return {corner.x, corner.y, corner.x + kIconPixels, corner.y + kIconPixels};
}

bool hasIconsSize(const RECT& rect) noexcept {
  return rect.right - rect.left == kIconPixels && rect.bottom - rect.top == kIconPixels;
}

}  // namespace

HRESULT InPlace::activate(IOleClientSite* clientSite) {
  if (active()) return S_OK;
  const auto site = ComPtr<IOleClientSite>(clientSite).as<IOleInPlaceSite>();
  if (!site || site->CanInPlaceActivate() != S_OK) return OLE_E_NOT_INPLACEACTIVE;
  check(site->OnInPlaceActivate());
  site_ = site;
  HWND parent = nullptr;
  ComPtr<IOleInPlaceFrame> frame;
  ComPtr<IOleInPlaceUIWindow> document;
  RECT position{}, clip{};
  OLEINPLACEFRAMEINFO frameInfo{};
  frameInfo.cb = sizeof(frameInfo);
  HRESULT result = site->GetWindow(&parent);
  if (SUCCEEDED(result)) {
    result = site->GetWindowContext(frame.put(), document.put(), &position, &clip, &frameInfo);
  }
  if (SUCCEEDED(result)) {
    makeWindow(parent, position);
    if (!window_) result = E_FAIL;
  }
  if (FAILED(result)) {
    deactivate();
    return result;
  }
  clientSite->ShowObject();
  if (!hasIconsSize(position)) askForSize(kIconPixels, kIconPixels);
  return S_OK;
}

// A static control: it draws the picture, needs no window class of ours and leaves the mouse to the
// container.
void InPlace::makeWindow(HWND parent, const RECT& position) {
  icon_.emplace();
  corner_ = {position.left, position.top};
  window_ =
      CreateWindowExW(0, L"STATIC", nullptr, WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | SS_BITMAP, corner_.x,
                      corner_.y, kIconPixels, kIconPixels, parent, nullptr, moduleHandle(), nullptr);
  if (window_) {
    SendMessageW(window_, STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(icon_->bitmap()));
  }
}

void InPlace::deactivate() noexcept {
  if (window_ && IsWindow(window_)) DestroyWindow(window_);  // the container's may have taken it along
  window_ = nullptr;
  icon_.reset();
  if (const auto site = std::exchange(site_, nullptr)) site->OnInPlaceDeactivate();
}

void InPlace::show(bool visible) noexcept { ShowWindow(window_, visible ? SW_SHOWNA : SW_HIDE); }

bool InPlace::place(const RECT& position, const RECT* clip) noexcept {
  corner_ = {position.left, position.top};
  SetWindowPos(window_, nullptr, corner_.x, corner_.y, kIconPixels, kIconPixels,
               SWP_NOZORDER | SWP_NOACTIVATE);
  clipTo(clip);
  return hasIconsSize(position);
}

void InPlace::clipTo(const RECT* clip) noexcept {
  const RECT whole = iconAt(corner_);
  RECT seen = whole;
  if (clip) IntersectRect(&seen, &whole, clip);
  if (EqualRect(&seen, &whole)) {
    SetWindowRgn(window_, nullptr, TRUE);
    return;
  }
  OffsetRect(&seen, -corner_.x, -corner_.y);
  SetWindowRgn(window_, CreateRectRgnIndirect(&seen), TRUE);  // the window owns the region from now on
}

void InPlace::askForSize(int width, int height) noexcept {
  if (!active() || asking_) return;  // the container answers by a place, within this call
  asking_ = true;
  const RECT wanted{corner_.x, corner_.y, corner_.x + width, corner_.y + height};
  const auto site = site_;
  site->OnPosRectChange(&wanted);
  asking_ = false;
}

}  // namespace vmgv

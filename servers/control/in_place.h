// The control's window within its container's.
#pragma once

#include <ole2.h>

#include <optional>

#include "frontends/com/com_ptr.h"
#include "servers/control/icon.h"

namespace vmgv {

// Sizes are in pixels: the window always has the icon's size, at every scale.
class InPlace {
 public:
  InPlace() = default;
  InPlace(const InPlace&) = delete;
  InPlace& operator=(const InPlace&) = delete;
  ~InPlace() { deactivate(); }

  // Does nothing where the control is active already.
  HRESULT activate(IOleClientSite* site);
  void deactivate() noexcept;
  bool active() const noexcept { return static_cast<bool>(site_); }

  HWND window() const noexcept { return window_; }
  void show(bool visible) noexcept;
  // The place only; false where the container gives another size.
  bool place(const RECT& position, const RECT* clip) noexcept;
  // Tells the container the size that the control has.
  void askForSize(int width, int height) noexcept;

 private:
  void makeWindow(HWND parent, const RECT& position);
  void clipTo(const RECT* clip) noexcept;

  ComPtr<IOleInPlaceSite> site_;
  HWND window_ = nullptr;
  POINT corner_{};
  std::optional<Icon> icon_;
  bool asking_ = false;
};

}  // namespace vmgv

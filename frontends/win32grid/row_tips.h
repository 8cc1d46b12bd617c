// What a list says of a row beside it: while the mouse rests there, or until the next key.
#pragma once

#include <windows.h>

#include <string>

namespace vmgv {

class RowTips {
 public:
  // The window owns the tips.
  explicit RowTips(HWND rows);

  // The mouse is over a row, with this to say; "" for nothing.
  void hover(const RECT& row, std::wstring text);
  void show(POINT screen, std::wstring text);
  void hide() const noexcept;
  HWND window() const noexcept { return tips_; }

 private:
  void send(UINT message, UINT_PTR tool, UINT flags, const RECT& row, std::wstring& text) const noexcept;

  HWND rows_, tips_;
};

}  // namespace vmgv

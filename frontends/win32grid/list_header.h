// The headers of a list: the platform's control shows and marks the columns; what the user does to them
// becomes a change of the view.
#pragma once

#include <windows.h>
//
#include <commctrl.h>

#include <optional>

#include "frontends/win32grid/list_group_box.h"

namespace vmgv {

class ListHeader {
 public:
  // The model and the box outlive it; the parent owns its window.
  ListHeader(HWND parent, ListModel& model, ListGroupBox& box);
  ListHeader(const ListHeader&) = delete;
  ListHeader& operator=(const ListHeader&) = delete;

  HWND window() const noexcept { return window_; }
  int heightWanted() const noexcept;
  void showColumns();
  void showMarks();  // of the columns that sort and group

  // What the control tells its parent, and the answer to it.
  LRESULT notified(const NMHEADERW& told);
  std::function<void()> onWidth;  // while a column is made wider or narrower

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                    DWORD_PTR self) noexcept;

  GridEngine& engine() const noexcept { return *model_.engine; }
  std::int32_t columnAt(int item) const { return model_.columns.at(static_cast<std::size_t>(item)).index; }
  HDITEMW described(const ShownColumn& column, std::wstring& text) const;
  LRESULT dropped(int item, int order);
  void resized(int item);

  ListModel& model_;
  ListGroupBox& box_;
  HWND window_;
  POINT mouse_{};  // where it was last, on the screen
  bool dragging_ = false, resizing_ = false;
};

}  // namespace vmgv

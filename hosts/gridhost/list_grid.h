// The grid as a native list view, which asks for the rows it shows and holds none.
#pragma once

#include <windows.h>
//
#include <commctrl.h>

#include <memory>
#include <string>
#include <vector>

#include "adapters/grid/engine.h"

namespace vmgv {

class ListGrid final : private GridObserver {
 public:
  ListGrid(HWND parent, std::shared_ptr<GridEngine> engine);
  ListGrid(const ListGrid&) = delete;
  ListGrid& operator=(const ListGrid&) = delete;
  ~ListGrid() override;

  HWND window() const noexcept { return window_; }  // its parent owns it
  // For a font or density other than before.
  void showColumns();
  // What the list tells its parent with WM_NOTIFY, and the answer to it.
  LRESULT notified(NMHDR& message);

 private:
  void layoutChanged() override { showColumns(); }
  void rowsChanged() override;
  void selectionChanged() override;
  void appearanceChanged() override { InvalidateRect(window_, nullptr, TRUE); }

  void insertColumn(int place, const std::wstring& caption, int format, int width) const;
  int widthOf(std::int32_t column) const;
  void tell(LVITEMW& cell);
  void takeSelection();

  HWND window_;
  std::shared_ptr<GridEngine> engine_;
  std::vector<std::int32_t> columns_;  // the visible ones from left to right
  std::wstring told_;                  // the text that the list was told last
  bool following_ = false;             // the list shows the engine's selection; the user does not change it
};

}  // namespace vmgv

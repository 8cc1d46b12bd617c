// The grid of a Windows program: a list of a grid engine's rows with headers and a group-by box above it.
//
// The engine holds the layout: the list shows its columns, order, groups, previews and selection, and writes
// back what the user does. It asks for the rows in sight only. WM_SETFONT and WM_SETFOCUS mean to it what
// they mean to any control.
#pragma once

#include "frontends/win32grid/list_header.h"
#include "frontends/win32grid/list_rows.h"

namespace vmgv {

class ListGrid final : public OwnWindow, private GridObserver {
 public:
  // Throws Error.
  ListGrid(HWND parent, std::shared_ptr<GridEngine> engine);
  ~ListGrid() override;

  ListRows& rows() noexcept { return *rows_; }
  ListHeader& header() noexcept { return *header_; }
  ListGroupBox& box() noexcept { return *box_; }

 private:
  std::optional<LRESULT> handle(UINT message, WPARAM wParam, LPARAM lParam) override;
  void layoutChanged() override { arrange(); }
  void rowsChanged() override;
  void selectionChanged() override { rows_->repaint(); }
  void appearanceChanged() override;

  void makeLook();
  void arrange();
  void placeHeader();

  ListModel model_;
  ColumnWidths widths_;
  HFONT usual_;
  // The engine's, as the look has them.
  GridFont font_;
  std::vector<GridFont> largestFonts_;
  std::unique_ptr<ListGroupBox> box_;
  std::unique_ptr<ListHeader> header_;
  std::unique_ptr<ListRows> rows_;
};

}  // namespace vmgv

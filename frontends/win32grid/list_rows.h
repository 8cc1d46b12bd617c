// The rows of a list: it scrolls by whole rows, so that what it costs to show them depends on how many are in
// sight, and keeps the place of the user's hand: a current row and column.
//
// Mouse: a click selects a row (with Ctrl one more, with Shift all from the last one), a group opens and
// closes at its mark or by a double click. Keys, beside those of every list:
//   Right, +  Left, -        open, close a group; Left of a record's first cell goes to its header
//   Enter or Space           open or close the group of a header
//   * and /                  open, close all groups
//   F3                       as a click on the header of the current column, with Shift or Ctrl as well
//   Ctrl+Shift+Left, Right   move the current column
//   Ctrl++, Ctrl+-           make it wider, narrower
//   Ctrl+G                   group by it, or no longer
//   F6                       go to the group-by box
//   Shift+F1                 say why the current row looks as it does, as a mouse that rests on it is told
//   Ctrl+Z, Ctrl+Shift+Z     undo, redo what was done to the view
#pragma once

#include <functional>

#include "frontends/win32grid/own_window.h"
#include "frontends/win32grid/row_accessible.h"
#include "frontends/win32grid/row_painter.h"
#include "frontends/win32grid/row_tips.h"

namespace vmgv {

class ListRows final : public OwnWindow {
 public:
  // The model outlives it.
  ListRows(HWND parent, const ListModel& model);
  ~ListRows() override;

  // Rows, columns or their look are others.
  void refresh();
  int shift() const noexcept { return shift_; }  // of the columns to the left, pixels

  std::function<void()> onShift;
  std::function<void()> onLeaveForBox;

  std::int32_t currentRow() const noexcept { return row_; }        // 0: none
  std::int32_t currentColumn() const noexcept { return column_; }  // an index; 0: none
  RECT rectOf(std::int32_t position) const;                        // empty where it is not in sight
  std::int32_t positionAt(int y) const;                            // 0: below all rows

 private:
  std::optional<LRESULT> handle(UINT message, WPARAM wParam, LPARAM lParam) override;
  GridEngine& engine() const noexcept { return *model_.engine; }
  std::int32_t count() const { return engine().rowCount(); }

  void paint(HDC screen) const;
  int heightOf(std::int32_t position) const;
  std::int32_t topFor(std::int32_t last) const;
  std::int32_t bottomFor(std::int32_t first) const;
  void showScrollBars();
  void scroll(int bar, int request);
  void scrollTo(std::int32_t top);
  void shiftTo(int shift);
  void turnWheel(int bar, int delta);

  enum class Select { This, Range, Nothing };
  static Select asHeld() noexcept;  // by the keys that are held down
  void goTo(std::int32_t position, Select select);
  void toggleSelected(std::int32_t position);
  void takeColumn(std::int32_t column);
  std::size_t placeOf(std::int32_t column) const noexcept;  // among those that are shown

  std::wstring reasons(std::int32_t position) const;  // why the row looks as it does; "": no condition
  void hover(POINT point);
  void showReasons();

  std::optional<LRESULT> handleHands(UINT message, WPARAM wParam, LPARAM lParam);
  void press(POINT point, bool twice);
  void drag(POINT point);
  bool keyDown(int key);
  bool viewKey(int key, bool shift);
  bool columnKey(int key, bool control, bool shift);
  bool groupKey(int key);
  bool moveKey(int key, bool control);
  bool open(bool opened);
  DisplayRow row() const;  // the current one; of no group where there is none

  const ListModel& model_;
  std::int32_t top_ = 1;               // the first position in sight
  std::int32_t row_ = 0, anchor_ = 0;  // positions: the current one, and where a range begins
  std::int32_t column_ = 0;            // the current one
  int shift_ = 0;
  int wheel_ = 0;  // what is left of its turns
  bool dragging_ = false;
  std::int32_t hovered_ = 0;  // the row below the mouse
  std::optional<RowTips> tips_;
  ComPtr<RowAccessible> accessible_;  // once somebody has asked for it
};

}  // namespace vmgv

// The box above a list's headers: a button for each column that groups the rows, or the prompt to drag one
// here.
//
// A click turns a group's direction round; dragged within the box it changes its level, dragged out of it the
// column groups no longer. Keys: Left and Right go from button to button, with Ctrl they move the group,
// Space or Enter turns it round, Delete ends it, Down and Esc go back to the rows.
#pragma once

#include <functional>
#include <vector>

#include "frontends/win32grid/list_columns.h"
#include "frontends/win32grid/own_window.h"

namespace vmgv {

class ListGroupBox final : public OwnWindow {
 public:
  // The model outlives it.
  ListGroupBox(HWND parent, const ListModel& model);

  void showGroups();
  int heightWanted() const noexcept;
  bool focusFirst();  // false where nothing is grouped
  std::function<void()> onLeave;

  // While a column is dragged, by points of the screen: marks where it would go, and whether it would.
  bool showDrop(POINT screen);
  void hideDrop();
  std::size_t levelAt(POINT screen) const;

 private:
  std::optional<LRESULT> handle(UINT message, WPARAM wParam, LPARAM lParam) override;
  static LRESULT CALLBACK chipProcedure(HWND chip, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                        DWORD_PTR self) noexcept;
  std::optional<LRESULT> chipMessage(std::size_t level, UINT message, WPARAM wParam, LPARAM lParam);

  GridEngine& engine() const noexcept { return *model_.engine; }
  std::int32_t columnOf(std::size_t level) const { return engine().groups()[level].colIndex; }
  HWND chip(std::size_t level);
  RECT rectOf(std::size_t level) const noexcept;
  void arrange();
  void paint(HDC context) const;
  bool drag(std::size_t level, POINT point);
  bool drop(std::size_t level, POINT point);
  bool key(std::size_t level, int key);
  void focus(std::size_t level) const;

  const ListModel& model_;
  std::vector<HWND> chips_;  // kept when groups go: one may be in the middle of a message
  std::size_t shown_ = 0;
  int drop_ = -1;  // the level where the mark is
  POINT pressedAt_{};
  bool dragging_ = false;
};

}  // namespace vmgv

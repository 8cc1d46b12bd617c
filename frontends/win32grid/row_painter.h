// Draws the rows of a list: records with their previews, headers and footers of groups.
#pragma once

#include "frontends/win32grid/list_columns.h"

namespace vmgv {

struct RowState {
  bool selected = false;
  bool active = false;       // the list has the focus
  std::int32_t current = 0;  // where the row is the current one: the current column
};

class RowPainter {
 public:
  // `shift`: how far the columns are scrolled to the left.
  RowPainter(const ListModel& model, HDC context, int shift) noexcept
      : model_(model), context_(context), shift_(shift) {}

  void paint(const RECT& room, std::int32_t position, const RowState& state) const;
  void fill(const RECT& room, COLORREF colour) const noexcept;

 private:
  void header(const RECT& room, const DisplayRow& row, const RowState& state) const;
  void cells(const RECT& line, std::int32_t position, HFONT font, COLORREF back, const RowState& state) const;
  void preview(const RECT& room, const DisplayRow& row, HFONT font, COLORREF ink) const;
  void expander(const RECT& room, bool expanded, COLORREF ink) const noexcept;

  const ListModel& model_;
  HDC context_;
  int shift_;
};

int rowHeight(const ListModel& model, const DisplayRow& row) noexcept;
// Where a header's mark of being expanded stands in its row.
RECT expanderRect(const ListModel& model, const DisplayRow& row, const RECT& room) noexcept;
// Behind rows, and where there are none.
COLORREF backColour(const ListModel& model);

}  // namespace vmgv

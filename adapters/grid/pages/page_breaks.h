// Where pages begin in a list of rows of different heights.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

namespace vmgv {

// What a row takes, in points: itself, and below it lines that may go on to the next page.
struct RowHeight {
  double row = 0, line = 0;
  int lines = 0;
  bool leadsNext = false;  // not to be left alone at the foot of a page
};

// Rows count from 0. The parts of a row are itself, 0, and its lines from 1 on.
struct PageStart {
  std::int32_t row = 0;
  int part = 0;
  bool operator==(const PageStart&) const = default;
};

// The room for rows on the first and on every further page.
struct PageRooms {
  double first = 0, further = 0;
};

// One entry a page, at least one, and behind them the end, {rows, 0}. A row moves to the next page where it
// fits there; one that is taller than a page goes on from part to part. A page holds a part however little
// room it has.
std::vector<PageStart> breakPages(std::int32_t rows, const std::function<RowHeight(std::int32_t)>& heightOf,
                                  PageRooms rooms);

}  // namespace vmgv

#include "support/forms/tool_picture.h"

namespace vmgv {
namespace {

using Strokes = std::vector<ToolStroke>;
using Point = ToolStroke::Point;

ToolStroke box(float left, float top, float right, float bottom) {
  return {{{left, top}, {right, top}, {right, bottom}, {left, bottom}}, true, false};
}

ToolStroke open(std::vector<Point> points) { return {std::move(points), false, false}; }

ToolStroke triangle(Point a, Point b, Point c) { return {{a, b, c}, true, true}; }

Strokes cross(float from, float to) {
  return {open({{from, from}, {to, to}}), open({{to, from}, {from, to}})};
}

// A printer: the sheet above, the body, the sheet that comes out.
Strokes printer() {
  return {open({{4.5F, 6}, {4.5F, 2}, {11.5F, 2}, {11.5F, 6}}),
          open({{4.5F, 11}, {2, 11}, {2, 6}, {14, 6}, {14, 11}, {11.5F, 11}}), box(4.5F, 9, 11.5F, 14)};
}

Strokes printerWithDots() {
  Strokes strokes = printer();
  for (const float x : {6.0F, 8.0F, 10.0F})
    strokes.push_back({{{x - 0.5F, 11}, {x + 0.5F, 11}, {x + 0.5F, 12}, {x - 0.5F, 12}}, true, true});
  return strokes;
}

// A glass is eight-sided: at this size nobody tells it from a round one.
Strokes glass() {
  return {{{{5.2F, 2},
            {8.8F, 2},
            {11.5F, 4.7F},
            {11.5F, 8.3F},
            {8.8F, 11},
            {5.2F, 11},
            {2.5F, 8.3F},
            {2.5F, 4.7F}},
           true,
           false},
          open({{10.2F, 9.7F}, {14, 13.5F}}),
          open({{5, 6.5F}, {9, 6.5F}}),
          open({{7, 4.5F}, {7, 8.5F}})};
}

}  // namespace

std::span<const ToolStroke> strokesOf(ToolButton::Picture picture) {
  using Picture = ToolButton::Picture;
  switch (picture) {
    case Picture::None:
    case Picture::Bold:
    case Picture::Italic:
    case Picture::Underline:
    case Picture::Strikeout: return {};
    case Picture::Delete: {
      static const Strokes strokes = cross(5, 11);
      return strokes;
    }
    case Picture::Previous: {
      static const Strokes strokes{triangle({10.5F, 3}, {10.5F, 13}, {4.5F, 8})};
      return strokes;
    }
    case Picture::Next: {
      static const Strokes strokes{triangle({5.5F, 3}, {5.5F, 13}, {11.5F, 8})};
      return strokes;
    }
    case Picture::ZoomIn: {
      static const Strokes strokes = glass();
      return strokes;
    }
    case Picture::TwoPages: {
      static const Strokes strokes{box(1.5F, 4, 7, 12), box(9, 4, 14.5F, 12)};
      return strokes;
    }
    case Picture::WholePage: {
      static const Strokes strokes{box(4, 2, 12, 14), open({{6, 5}, {10, 5}}), open({{6, 8}, {10, 8}}),
                                   open({{6, 11}, {8.5F, 11}})};
      return strokes;
    }
    case Picture::PrintSetup: {
      static const Strokes strokes = printerWithDots();
      return strokes;
    }
    case Picture::Print: {
      static const Strokes strokes = printer();
      return strokes;
    }
    case Picture::Close: {
      static const Strokes strokes = cross(3.5F, 12.5F);
      return strokes;
    }
  }
  return {};
}

const char* letterOf(ToolButton::Picture picture) noexcept {
  using Picture = ToolButton::Picture;
  switch (picture) {
    case Picture::Bold: return "B";
    case Picture::Italic: return "I";
    case Picture::Underline: return "U";
    case Picture::Strikeout: return "S";
    case Picture::None:
    case Picture::Delete:
    case Picture::Previous:
    case Picture::Next:
    case Picture::ZoomIn:
    case Picture::TwoPages:
    case Picture::WholePage:
    case Picture::PrintSetup:
    case Picture::Print:
    case Picture::Close: return nullptr;
  }
  return nullptr;
}

}  // namespace vmgv

#include "support/forms/layout.h"

#include <algorithm>
#include <cmath>

#include "support/forms/window_port.h"

namespace vmgv::layout {
namespace {

constexpr int kTwipsPerPoint = 20;
constexpr double kUnitsPerFontSize = 0.6;  // a 9 point font spaces by 7 pixels at 96 dpi
constexpr int kPaddingUnits = 1;           // inside a frame

// One run over a form: sizes upwards, then rectangles downwards.
class Pass {
 public:
  Pass(const Form& form, WindowPort& window)
      : window_(window), unit_(spacingUnit(form.font().size, window.pixel().width)) {}

  int unit() const { return unit_; }

  Size measure(const Node& node) {
    switch (node.kind) {
      case Node::Kind::Nothing:
      case Node::Kind::Space: return {};
      case Node::Kind::Item: return measureControl(*node.control);
      case Node::Kind::Row: return measureRow(node);
      case Node::Kind::Column: return measureColumn(node);
      case Node::Kind::Table: return measureTable(node);
    }
    return {};
  }

  void place(const Node& node, Rect area) {
    switch (node.kind) {
      case Node::Kind::Nothing:
      case Node::Kind::Space: break;
      case Node::Kind::Item: placeControl(*node.control, area); break;
      case Node::Kind::Row: placeRow(node, area); break;
      case Node::Kind::Column: placeColumn(node, area); break;
      case Node::Kind::Table: placeTable(node, area); break;
    }
  }

 private:
  Insets insets(const Container& container) {
    Insets border = window_.insets(container);
    if (dynamic_cast<const Frame*>(&container)) {
      const int padding = kPaddingUnits * unit_;
      border.left += padding;
      border.top += padding;
      border.right += padding;
      border.bottom += padding;
    }
    return border;
  }

  Size measureControl(Control& control) {
    const Size natural = window_.naturalSize(control);
    const auto* container = dynamic_cast<const Container*>(&control);
    if (!container) return natural;
    const Insets border = insets(*container);
    const Size content = measure(container->content);
    return {std::max(natural.width, content.width + border.left + border.right),
            std::max(natural.height, content.height + border.top + border.bottom)};
  }

  std::vector<Size> measureAll(const Node& node) {
    std::vector<Size> sizes;
    sizes.reserve(node.children.size());
    for (const Node& child : node.children) sizes.push_back(measure(child));
    if (node.uniform) {
      int widest = 0;
      for (const Size& size : sizes) widest = std::max(widest, size.width);
      for (std::size_t i = 0; i < sizes.size(); ++i) {
        if (node.children[i].kind == Node::Kind::Item) sizes[i].width = widest;
      }
    }
    return sizes;
  }

  // A space needs no gap around it.
  int gaps(const Node& node) const {
    const auto things = std::count_if(node.children.begin(), node.children.end(),
                                      [](const Node& child) { return child.kind != Node::Kind::Space; });
    return things > 1 ? static_cast<int>(things - 1) * node.gapUnits * unit_ : 0;
  }

  Size measureRow(const Node& node) {
    Size total{gaps(node), 0};
    for (const Size& size : measureAll(node)) {
      total.width += size.width;
      total.height = std::max(total.height, size.height);
    }
    return total;
  }

  Size measureColumn(const Node& node) {
    Size total{0, gaps(node)};
    for (const Size& size : measureAll(node)) {
      total.width = std::max(total.width, size.width);
      total.height += size.height;
    }
    return total;
  }

  // What each child gets of the room that is left over.
  static std::vector<int> shares(const Node& node, int left) {
    std::vector<int> result(node.children.size(), 0);
    int factors = 0;
    for (const Node& child : node.children) factors += child.stretchFactor;
    for (std::size_t i = 0; i < result.size() && factors > 0 && left > 0; ++i) {
      const int factor = node.children[i].stretchFactor;
      result[i] = left * factor / factors;
      left -= result[i];
      factors -= factor;
    }
    return result;
  }

  void placeRow(const Node& node, Rect area) {
    const std::vector<Size> sizes = measureAll(node);
    int used = gaps(node);
    for (const Size& size : sizes) used += size.width;
    const std::vector<int> extra = shares(node, area.width - used);
    int left = area.left;
    for (std::size_t i = 0; i < sizes.size(); ++i) {
      const Node& child = node.children[i];
      const int width = sizes[i].width + extra[i];
      placeInRow(child, sizes[i].height, {left, area.top, width, area.height});
      left += width + (child.kind == Node::Kind::Space ? 0 : node.gapUnits * unit_);
    }
  }

  // A control of its own natural height stands in the middle.
  void placeInRow(const Node& node, int natural, Rect room) {
    const bool whole =
        node.fill || node.kind != Node::Kind::Item || dynamic_cast<const Container*>(node.control) != nullptr;
    const int height = whole ? room.height : std::min(natural, room.height);
    place(node, {room.left, room.top + snapped((room.height - height) / 2), room.width, height});
  }

  void placeColumn(const Node& node, Rect area) {
    const std::vector<Size> sizes = measureAll(node);
    int used = gaps(node);
    for (const Size& size : sizes) used += size.height;
    const std::vector<int> extra = shares(node, area.height - used);
    int top = area.top;
    for (std::size_t i = 0; i < sizes.size(); ++i) {
      const int height = sizes[i].height + extra[i];
      place(node.children[i], {area.left, top, area.width, height});
      top += height + (node.children[i].kind == Node::Kind::Space ? 0 : node.gapUnits * unit_);
    }
  }

  struct Grid {
    std::vector<std::vector<Size>> cells;
    std::vector<int> widths, heights;  // of the columns and the rows
    int widestItem = 0;                // that is a whole row
  };

  Grid gridOf(const Node& node) {
    Grid grid;
    for (const Node& row : node.children) {
      if (row.kind == Node::Kind::Item) {
        const Size size = grid.cells.emplace_back(1, measure(row)).front();
        grid.heights.push_back(size.height);
        grid.widestItem = std::max(grid.widestItem, size.width);
        continue;
      }
      const std::vector<Size>& cells = grid.cells.emplace_back(measureAll(row));
      grid.widths.resize(std::max(grid.widths.size(), cells.size()));
      int height = 0;
      for (std::size_t i = 0; i < cells.size(); ++i) {
        grid.widths[i] = std::max(grid.widths[i], cells[i].width);
        height = std::max(height, cells[i].height);
      }
      grid.heights.push_back(height);
    }
    return grid;
  }

  static int total(const std::vector<int>& lengths, int gap) {
    int sum = lengths.empty() ? 0 : static_cast<int>(lengths.size() - 1) * gap;
    for (const int length : lengths) sum += length;
    return sum;
  }

  Size measureTable(const Node& node) {
    const Grid grid = gridOf(node);
    const int gap = node.gapUnits * unit_;
    return {std::max(total(grid.widths, gap), grid.widestItem), total(grid.heights, gap)};
  }

  // What is left over goes to the last column and the last row.
  void placeTable(const Node& node, Rect area) {
    Grid grid = gridOf(node);
    const int gap = node.gapUnits * unit_;
    if (!grid.widths.empty()) grid.widths.back() += area.width - total(grid.widths, gap);
    if (!grid.heights.empty()) grid.heights.back() += area.height - total(grid.heights, gap);
    int top = area.top;
    for (std::size_t r = 0; r < grid.cells.size(); ++r) {
      int left = area.left;
      const bool whole = node.children[r].kind == Node::Kind::Item;
      if (whole) place(node.children[r], {left, top, area.width, grid.heights[r]});
      for (std::size_t c = 0; !whole && c < grid.cells[r].size(); ++c) {
        placeInRow(node.children[r].children[c], grid.cells[r][c].height,
                   {left, top, grid.widths[c], grid.heights[r]});
        left += grid.widths[c] + gap;
      }
      top += grid.heights[r] + gap;
    }
  }

  void placeControl(Control& control, Rect area) {
    control.setRect(area);
    const auto* container = dynamic_cast<const Container*>(&control);
    if (!container) return;
    const Insets border = insets(*container);
    place(container->content, {border.left, border.top, area.width - border.left - border.right,
                               area.height - border.top - border.bottom});
  }

  int snapped(int twips) const {
    const int pixel = window_.pixel().height;
    return twips / pixel * pixel;
  }

  WindowPort& window_;
  int unit_;
};

}  // namespace

Node item(Control& control) {
  Node node;
  node.kind = Node::Kind::Item;
  node.control = &control;
  return node;
}

Node row(std::vector<Node> children) {
  Node node;
  node.kind = Node::Kind::Row;
  node.children = std::move(children);
  return node;
}

Node column(std::vector<Node> children) {
  Node node;
  node.kind = Node::Kind::Column;
  node.children = std::move(children);
  return node;
}

Node table(std::vector<Node> rows) {
  Node node;
  node.kind = Node::Kind::Table;
  node.children = std::move(rows);
  return node;
}

Node space() {
  Node node;
  node.kind = Node::Kind::Space;
  node.stretchFactor = 1;
  return node;
}

Node buttons(const std::vector<Control*>& controls) {
  Node node = row({space()});
  for (Control* control : controls) node.children.push_back(item(*control));
  node.uniform = true;
  return node;
}

int spacingUnit(double points, int pixel) {
  const int pixels = static_cast<int>(std::lround(points * kTwipsPerPoint * kUnitsPerFontSize / pixel));
  return std::max(pixels, 2) * pixel;
}

void arrange(Form& form, WindowPort& window, Size atLeast) {
  Pass pass(form, window);
  const int margin = form.marginUnits * pass.unit();
  Size inside = pass.measure(form.content);
  inside.width = std::max(inside.width, atLeast.width - 2 * margin);
  inside.height = std::max(inside.height, atLeast.height - 2 * margin);
  pass.place(form.content, {margin, margin, inside.width, inside.height});
  form.setSize({inside.width + 2 * margin, inside.height + 2 * margin});
}

}  // namespace vmgv::layout

// The structure of a form: rows, columns and tables of controls, turned into rectangles by one pass.
//
//   form.content = column({item(frame).stretch(), buttons({&ok, &cancel, &help})});
//
// Gaps and margins count in spacing units, which follow the form's font.
#pragma once

#include <utility>
#include <vector>

#include "support/forms/geometry.h"

namespace vmgv {

class Control;
class Form;
class WindowPort;

namespace layout {

struct Node {  // a control, or how some of them stand to each other
  enum class Kind { Nothing, Item, Row, Column, Table, Space };
  Kind kind = Kind::Nothing;
  Control* control = nullptr;  // of an Item
  std::vector<Node> children;  // of a Row or Column; a Table's are Rows of its cells, or items as wide as it
  int gapUnits = 1;            // between the children
  int stretchFactor = 0;       // share of what is left over along the parent's direction
  bool uniform = false;        // a Row whose children are all as wide as the widest
  bool fill = false;           // as high as its row, instead of centred in it

  Node stretch(int factor = 1) && {
    stretchFactor = factor;
    return std::move(*this);
  }
  Node gap(int units) && {
    gapUnits = units;
    return std::move(*this);
  }
  Node filled() && {
    fill = true;
    return std::move(*this);
  }
};

Node item(Control& control);
Node row(std::vector<Node> children);
Node column(std::vector<Node> children);
// Rows of cells, each column as wide as its widest cell; Node() is an empty cell, an item a whole row.
Node table(std::vector<Node> rows);
Node space();  // takes what is left over
// Equal buttons at the right end of a row.
Node buttons(const std::vector<Control*>& controls);

// The spacing unit for a font of `points`, in twips, rounded to whole pixels of `pixel` twips.
int spacingUnit(double points, int pixel);

// Gives every control of the form its rectangle and the form its size, the smallest one that fits unless a
// larger one is asked for.
void arrange(Form& form, WindowPort& window, Size atLeast = {});

}  // namespace layout
}  // namespace vmgv

// Automation's colours as Qt has them.
#pragma once

#include <QColor>
#include <QPalette>

#include "support/forms/colour.h"

namespace vmgv {

// What the desktop chooses comes from the palette.
QColor qtColour(Colour colour, const QPalette& palette);
Colour formColour(const QColor& colour);

// `ink`, or else what can be read on the background: not every desktop sees to that.
QColor readable(const QColor& ink, const QColor& back);
// The text of what is selected.
QColor selectedInk(const QPalette& palette, QPalette::ColorGroup group);

}  // namespace vmgv

// Automation's colours as Qt has them.
#pragma once

#include <QColor>
#include <QPalette>

#include "support/forms/colour.h"

namespace vmgv {

// What the desktop chooses comes from the palette.
QColor qtColour(Colour colour, const QPalette& palette);
Colour formColour(const QColor& colour);

}  // namespace vmgv

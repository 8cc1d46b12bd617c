// How wide a push button is that a user likes to hit and to read.
#pragma once

#include <QPushButton>

namespace vmgv {

// Of a button with words on it: room around them, and some width for the shortest.
int comfortableWidth(const QPushButton& button);

}  // namespace vmgv

// Key numbers and shift states of forms against Qt's.
#pragma once

#include <QKeyEvent>
#include <optional>

#include "support/forms/control.h"

namespace vmgv {

// Nothing where forms have no number for the key.
std::optional<Key> formKey(const QKeyEvent& event);
int shiftState(Qt::KeyboardModifiers modifiers) noexcept;

Qt::Key qtKey(Key key) noexcept;  // Qt::Key_unknown where Qt has none
Qt::KeyboardModifiers qtModifiers(int shift) noexcept;

}  // namespace vmgv

// What assistive technology takes a widget for, where Qt knows its class by no role of its own.
#pragma once

#include <QAccessible>
#include <QWidget>

namespace vmgv {

// To be called before the widget is shown. A scroll area is told as a whole, without viewport and bars.
void setAccessibleRole(QWidget& widget, QAccessible::Role role);

}  // namespace vmgv

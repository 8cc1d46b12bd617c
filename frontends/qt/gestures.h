// What hands do: mouse and key events, sent to the widget that they would reach.
#pragma once

#include <QPoint>
#include <QString>
#include <QWidget>

namespace vmgv::gestures {

// CannotDo where another widget lies over `point` of the target, or it is out of the window.
void click(QWidget& target, QPoint point);
void doubleClick(QWidget& target, QPoint point);

// To the widget itself, or what it became if the key going down took it away.
void press(QWidget& target, Qt::Key key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {});
// One character after the other.
void type(QWidget& target, const QString& text);
// A whole text at once, as an input method or the clipboard gives it.
void insert(QWidget& target, const QString& text);

}  // namespace vmgv::gestures

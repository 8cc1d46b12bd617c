#include "frontends/qt/gestures.h"

#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>

#include "frontends/qt/units.h"
#include "frontends/user/user.h"

namespace vmgv::gestures {
namespace {

QWidget& widgetUnder(QWidget& target, QPoint point) {
  QWidget* window = target.window();
  QWidget* hit = window->childAt(target.mapTo(window, point));
  if (hit && (hit == &target || target.isAncestorOf(hit))) return *hit;
  throw CannotDo(utf8(target.objectName()) + (hit ? " is covered by " + utf8(hit->objectName())
                                                  : std::string(" lies outside of its window")));
}

// Events of a program do not move the focus as those of a mouse do.
void focusByMouse(QWidget& hit) {
  for (QWidget* at = &hit; at; at = at->isWindow() ? nullptr : at->parentWidget()) {
    if (at->isEnabled() && (at->focusPolicy() & Qt::ClickFocus)) return at->setFocus(Qt::MouseFocusReason);
  }
}

void mouse(QWidget& hit, QPoint global, std::initializer_list<QEvent::Type> events) {
  const QPointer<QWidget> alive(&hit);
  for (const QEvent::Type type : events) {
    if (!alive) return;
    if (type == QEvent::MouseButtonPress) focusByMouse(hit);
    const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, hit.mapFromGlobal(global), global, Qt::LeftButton, held, Qt::NoModifier);
    QCoreApplication::sendEvent(&hit, &event);
  }
}

}  // namespace

void click(QWidget& target, QPoint point) {
  mouse(widgetUnder(target, point), target.mapToGlobal(point),
        {QEvent::MouseButtonPress, QEvent::MouseButtonRelease});
}

void doubleClick(QWidget& target, QPoint point) {
  mouse(widgetUnder(target, point), target.mapToGlobal(point),
        {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick,
         QEvent::MouseButtonRelease});
}

void press(QWidget& target, Qt::Key key, Qt::KeyboardModifiers modifiers, const QString& text) {
  const QPointer<QWidget> alive(&target);
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    if (!alive) return;
    QKeyEvent event(type, key, modifiers, text);
    QCoreApplication::sendEvent(&target, &event);
  }
}

void type(QWidget& target, const QString& text) {
  for (const char32_t character : text.toStdU32String()) {
    const Qt::Key key =
        character < 0x80 ? static_cast<Qt::Key>(QChar(character).toUpper().unicode()) : Qt::Key_unknown;
    press(target, key, {}, QString::fromUcs4(&character, 1));
  }
}

void insert(QWidget& target, const QString& text) {
  QInputMethodEvent event;
  event.setCommitString(text);
  QCoreApplication::sendEvent(&target, &event);
}

}  // namespace vmgv::gestures

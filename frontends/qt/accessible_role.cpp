#include "frontends/qt/accessible_role.h"

#include <QAbstractScrollArea>
#include <QAccessibleWidget>
#include <QVariant>

namespace vmgv {
namespace {

constexpr const char* kRole = "accessibleRole";

class Whole final : public QAccessibleWidget {
 public:
  using QAccessibleWidget::QAccessibleWidget;
  int childCount() const override { return 0; }
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  QAccessibleInterface* focusChild() const override { return nullptr; }
};

QAccessibleInterface* ofRole(const QString&, QObject* object) {
  auto* widget = qobject_cast<QWidget*>(object);
  const QVariant given = widget ? widget->property(kRole) : QVariant();
  if (!given.isValid()) return nullptr;
  const auto role = static_cast<QAccessible::Role>(given.toInt());
  if (qobject_cast<QAbstractScrollArea*>(widget)) return new Whole(widget, role);
  return new QAccessibleWidget(widget, role);
}

}  // namespace

void setAccessibleRole(QWidget& widget, QAccessible::Role role) {
  static const bool installed = [] { return QAccessible::installFactory(ofRole), true; }();
  Q_UNUSED(installed)
  widget.setProperty(kRole, static_cast<int>(role));
}

}  // namespace vmgv

#include "arranged_table.h"

#include <QBrush>
#include <QFont>

namespace {

// Operands are text that the user typed; the cell says of what kind they are.
std::optional<int> compare(const QVariant& cell, QVariant operand) {
  if (cell.isNull() || !operand.convert(cell.metaType())) return {};
  if (cell.typeId() == QMetaType::QString) {
    return QString::localeAwareCompare(cell.toString().toLower(), operand.toString().toLower());
  }
  const QPartialOrdering order = QVariant::compare(cell, operand);
  if (order == QPartialOrdering::Unordered) return {};
  return order == QPartialOrdering::Less ? -1 : order == QPartialOrdering::Greater ? 1 : 0;
}

bool matches(const Rule& rule, const QVariant& cell) {
  if (rule.op == Rule::Contains || rule.op == Rule::Lacks) {
    const bool contains = cell.toString().contains(rule.value1.toString(), Qt::CaseInsensitive);
    return contains == (rule.op == Rule::Contains);
  }
  const std::optional<int> first = compare(cell, rule.value1);
  if (!first) return false;
  switch (rule.op) {
    case Rule::Equal: return *first == 0;
    case Rule::Different: return *first != 0;
    case Rule::Greater: return *first > 0;
    case Rule::Less: return *first < 0;
    case Rule::NotLess: return *first >= 0;
    case Rule::NotGreater: return *first <= 0;
    case Rule::Between:
    case Rule::Outside: {
      const std::optional<int> second = compare(cell, rule.value2);
      return second && (*first >= 0 && *second <= 0) == (rule.op == Rule::Between);
    }
    case Rule::Contains:
    case Rule::Lacks: break;  // above
  }
  return false;
}

// A font of nothing but what is set: the view takes the rest from its own.
void setFont(const Look& look, QFont& font) {
  if (look.family) font.setFamilies({*look.family});
  if (look.points) font.setPointSizeF(*look.points);
  if (look.bold) font.setBold(*look.bold);
  if (look.italic) font.setItalic(*look.italic);
  if (look.underline) font.setUnderline(*look.underline);
  if (look.strikeOut) font.setStrikeOut(*look.strikeOut);
}

}  // namespace

void ArrangedTable::arrange() {
  QSortFilterProxyModel::sort(groups.empty() && keys.empty() ? -1 : 0, Qt::AscendingOrder);
  invalidate();  // sort() does nothing where its column is the one before
}

void ArrangedTable::repaint() {
  if (rowCount() > 0) emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

void ArrangedTable::sort(int column, Qt::SortOrder order) {
  keys.clear();
  if (column >= 0) keys.push_back({column, order});
  arrange();
}

bool ArrangedTable::lessThan(const QModelIndex& left, const QModelIndex& right) const {
  for (const std::vector<Key>* level : {&groups, &keys}) {
    for (const Key& key : *level) {
      const QModelIndex a = left.siblingAtColumn(key.column), b = right.siblingAtColumn(key.column);
      const bool ascending = key.order == Qt::AscendingOrder;
      if (QSortFilterProxyModel::lessThan(a, b)) return ascending;
      if (QSortFilterProxyModel::lessThan(b, a)) return !ascending;
    }
  }
  return false;
}

QVariant ArrangedTable::data(const QModelIndex& index, int role) const {
  QVariant shown = QSortFilterProxyModel::data(index, role);
  if (role != Qt::BackgroundRole && role != Qt::ForegroundRole && role != Qt::FontRole) return shown;
  for (const Rule& rule : rules) {
    const QVariant cell = index.siblingAtColumn(rule.column).data(Qt::EditRole);
    if (!matches(rule, cell)) continue;
    if (role == Qt::BackgroundRole && rule.look.back) shown = QBrush(*rule.look.back);
    if (role == Qt::ForegroundRole && rule.look.fore) shown = QBrush(*rule.look.fore);
    if (role == Qt::FontRole) {
      auto font = shown.value<QFont>();
      setFont(rule.look, font);
      shown = font;
    }
  }
  return shown;
}

#include "frontends/qt/grid_rows.h"

#include <QHeaderView>
#include <QPainter>
#include <QTextLayout>

#include "frontends/qt/colour.h"
#include "frontends/qt/units.h"

namespace vmgv {
namespace {

constexpr int kPadding = 8;         // above and below a line together, and at the sides of a preview
constexpr double kSoftened = 0.25;  // of the ink of a preview, by its background
constexpr int kIndent = 18;         // of each level of groups

QPalette::ColorGroup colorGroup(const QTableView& view) {
  if (!view.isEnabled()) return QPalette::Disabled;
  return view.isActiveWindow() ? QPalette::Active : QPalette::Inactive;
}

// Breaks text into at most `lines` lines, of which the last one is shortened where there is more.
void drawLines(QPainter& painter, const QRect& room, const QString& text, int lines) {
  const QFontMetrics metrics = painter.fontMetrics();
  int top = room.top();
  for (const QString& paragraph : text.split(u'\n')) {
    QTextLayout layout(paragraph, painter.font());
    layout.beginLayout();
    for (;;) {
      if (lines == 0) break;
      const QTextLine line = layout.createLine();
      if (!line.isValid()) break;
      QTextLine(line).setLineWidth(room.width());
      QString part = paragraph.mid(line.textStart(), line.textLength());
      if (--lines == 0) {
        const bool more = line.textStart() + line.textLength() < paragraph.size();
        if (more) part = metrics.elidedText(paragraph.mid(line.textStart()), Qt::ElideRight, room.width());
      }
      painter.drawText(room.left(), top + metrics.ascent(), part);
      top += metrics.lineSpacing();
    }
    layout.endLayout();
    if (lines == 0) return;
  }
}

void paintHeader(QTableView& view, const GridModel& model, QPainter& painter, const DisplayRow& row,
                 int modelRow) {
  const QRect rect(0, view.rowViewportPosition(modelRow), view.viewport()->width(), view.rowHeight(modelRow));
  const bool selected = view.selectionModel()->isRowSelected(modelRow);
  const QPalette& palette = view.palette();
  const auto group = colorGroup(view);
  painter.fillRect(rect, palette.brush(group, selected ? QPalette::Highlight : QPalette::Button));
  painter.fillRect(rect.left(), rect.bottom(), rect.width(), 1, palette.brush(group, QPalette::Mid));

  QStyleOption branch;
  branch.initFrom(&view);
  branch.rect = expanderRect(view, row, modelRow);
  branch.state |= QStyle::State_Children;
  if (model.engine().isExpanded(row)) branch.state |= QStyle::State_Open;
  branch.state.setFlag(QStyle::State_Selected, selected);
  view.style()->drawPrimitive(QStyle::PE_IndicatorBranch, &branch, &painter, &view);

  QFont font = view.font();
  font.setBold(true);
  painter.setFont(font);
  painter.setPen(selected ? selectedInk(palette, group) : palette.color(group, QPalette::ButtonText));
  const QRect room = rect.adjusted(branch.rect.right() + kPadding / 2, 0, -kPadding, 0);
  const QString text =
      painter.fontMetrics().elidedText(qt(model.engine().groupText(row)), Qt::ElideRight, room.width());
  painter.drawText(room, Qt::AlignVCenter | Qt::TextSingleLine, text);
  painter.setFont(view.font());

  if (view.hasFocus() && view.currentIndex().row() == modelRow) {
    QStyleOptionFocusRect focus;
    focus.initFrom(&view);
    focus.rect = rect.adjusted(1, 1, -1, -1);
    focus.backgroundColor = palette.color(group, selected ? QPalette::Highlight : QPalette::Button);
    view.style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, &view);
  }
}

void paintPreview(QTableView& view, const GridModel& model, QPainter& painter, const DisplayRow& row,
                  int modelRow) {
  const RowSizes sizes = RowSizes::of(model);
  const QHeaderView& columns = *view.horizontalHeader();
  const int right = std::min(view.viewport()->width(), columns.length() - columns.offset());
  const QRect rect(0, view.rowViewportPosition(modelRow) + sizes.line - 1, right,
                   view.rowHeight(modelRow) - sizes.line + 1);
  const bool selected = view.selectionModel()->isRowSelected(modelRow);
  const RowStyle& style = model.engine().styleOf(row);
  const QPalette& palette = view.palette();
  const auto group = colorGroup(view);
  const QColor back = selected ? palette.color(group, QPalette::Highlight) : model.look().back(style);
  painter.fillRect(rect, back);
  painter.fillRect(rect.left(), rect.bottom(), rect.width(), 1, palette.brush(group, QPalette::Mid));
  const QColor ink = selected ? selectedInk(palette, group) : model.look().ink(style);
  const QColor softer = mixed(ink, back, kSoftened);
  painter.setPen(readable(softer, back) == softer ? softer : ink);
  painter.setFont(model.look().font(style));
  const QRect room = rect.adjusted(2 * kPadding, 0, -kPadding, 0);
  drawLines(painter, room, qt(model.engine().previewText(row)), model.engine().previewLines());
}

}  // namespace

RowSizes RowSizes::of(const GridModel& model) {
  const GridLook& look = model.look();
  const int lines = model.engine().previewLines();
  return {look.textHeight() + kPadding, lines == 0 ? 0 : lines * look.lineSpacing() + kPadding / 2};
}

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  const DisplayRow row = model_.engine().displayRow(GridModel::positionOf(index.row()));
  if (row.rowType == kGroupHeaderRow) return;
  QStyleOptionViewItem cell = option;
  cell.rect.setHeight(std::min(cell.rect.height(), RowSizes::of(model_).line - 1));
  cell.font.setBold(cell.font.bold() || row.rowType == kGroupFooterRow);
  for (const auto group : {QPalette::Active, QPalette::Inactive}) {
    cell.palette.setColor(group, QPalette::HighlightedText, selectedInk(cell.palette, group));
  }
  QStyledItemDelegate::paint(painter, cell, index);
}

QRect expanderRect(const QTableView& view, const DisplayRow& row, int modelRow) {
  const int height = view.rowHeight(modelRow);
  return {row.level * kIndent, view.rowViewportPosition(modelRow), std::min(height, kIndent), height};
}

void paintFullRows(QTableView& view, const GridModel& model, QPainter& painter) {
  const int first = view.rowAt(0), last = view.rowAt(view.viewport()->height() - 1);
  if (first < 0) return;
  const bool previews = model.engine().previewLines() > 0;
  for (int modelRow = first; modelRow < model.rowCount() && (last < 0 || modelRow <= last); ++modelRow) {
    const int position = GridModel::positionOf(modelRow);
    if (position > model.engine().rowCount()) return;  // the view is about to hear of it
    const DisplayRow row = model.engine().displayRow(position);
    if (row.rowType == kGroupHeaderRow) paintHeader(view, model, painter, row, modelRow);
    if (row.rowType == kRecordRow && previews) paintPreview(view, model, painter, row, modelRow);
  }
}

}  // namespace vmgv

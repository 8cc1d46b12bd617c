#include "frontends/qt/grid_view.h"

#include <QEvent>
#include <QPainter>
#include <algorithm>
#include <limits>
#include <utility>

#include "adapters/grid/saved_view.h"
#include "frontends/qt/grid_accessible.h"
#include "frontends/qt/grid_header.h"
#include "frontends/qt/grid_rows.h"
#include "frontends/qt/item_model_source.h"
#include "frontends/qt/units.h"
#include "support/automation/error.h"

namespace vmgv {
namespace {

constexpr int kSampledRows = 200;  // looked at for a column's first width
constexpr int kWidestLetters = 36;
constexpr int kCellPadding = 8;  // of a cell's text, at each side

// Says that what happens to the view meanwhile is not the user's doing.
class Following {
 public:
  explicit Following(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
  Following(const Following&) = delete;
  Following& operator=(const Following&) = delete;
  ~Following() { flag_ = before_; }

 private:
  bool& flag_;
  bool before_;
};

// Before any part of the view is made: Qt keeps what it was told of one first.
GridModel* makeModel(GridView* view) {
  installGridAccessibility();
  return new GridModel(view);
}

}  // namespace

GridView::GridView(QWidget* parent)
    : QTableView(parent), model_(makeModel(this)), header_(new GridHeader(*model_, this)) {
  QTableView::setModel(model_);
  setHorizontalHeader(header_);
  setItemDelegate(new GridDelegate(*model_, this));
  setHorizontalScrollMode(ScrollPerPixel);
  setVerticalScrollMode(ScrollPerPixel);
  setTabKeyNavigation(false);  // Tab leaves the grid
  setSelectionBehavior(SelectRows);
  setWordWrap(false);
  setCornerButtonEnabled(false);
  verticalHeader()->hide();
  verticalHeader()->setMinimumSectionSize(1);
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  connect(horizontalHeader(), &QHeaderView::sectionMoved, this, [this](int section, int, int visual) {
    if (!following_) engine()->setColPosition(GridModel::columnOf(section), visual + 1);
  });
  connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this](int section, int, int size) {
    if (!following_ && !header_->isHeld() && size > 0) engine()->setWidth(GridModel::columnOf(section), size);
  });
  reload_.setSingleShot(true);
  reload_.setInterval(0);
  connect(&reload_, &QTimer::timeout, this, [this] {
    try {
      reload();
    } catch (const std::exception& error) {  // the engine keeps the rows it had
      qWarning("%s", error.what());
    }
  });
  engine()->addObserver(this);
  refreshRows();
}

GridView::~GridView() { engine()->removeObserver(this); }

const std::shared_ptr<GridEngine>& GridView::engine() const noexcept { return model_->sharedEngine(); }

void GridView::setEngine(std::shared_ptr<GridEngine> engine) {
  engine->addObserver(this);
  this->engine()->removeObserver(this);
  {
    const Following guard(following_);
    model_->setEngine(std::move(engine));
  }
  measuredFields_.clear();
  heights_ = {};
  refreshRows();
}

void GridView::setModel(QAbstractItemModel* source) {
  if (source_) source_->disconnect(&reload_);
  source_ = source;
  if (source) {
    const auto later = qOverload<>(&QTimer::start);
    connect(source, &QAbstractItemModel::modelReset, &reload_, later);
    connect(source, &QAbstractItemModel::layoutChanged, &reload_, later);
    connect(source, &QAbstractItemModel::dataChanged, &reload_, later);
    connect(source, &QAbstractItemModel::headerDataChanged, &reload_, later);
    for (const auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved,
                              &QAbstractItemModel::columnsInserted, &QAbstractItemModel::columnsRemoved}) {
      connect(source, signal, &reload_, later);
    }
  }
  reload();
}

void GridView::reload() {
  if (source_) {
    ItemModelSource source(*source_);
    problems_ = engine()->load(source);
    reload_.stop();  // reading may itself have fetched rows
  } else {
    problems_ = {};
    setEngine(std::make_shared<GridEngine>());
  }
}

void GridView::layoutChanged() { refreshRows(); }
void GridView::rowsChanged() { refreshRows(); }
void GridView::selectionChanged() { showSelection(); }

void GridView::appearanceChanged() {
  showLook();
  showHeights();
  header_->showBox();
  showWidths();
  viewport()->update();
}

void GridView::refreshRows() {
  const Following guard(following_);
  const QModelIndex current = currentIndex();
  const bool others = model_->refresh();
  measure();
  showLook();
  showHeights();
  header_->showBox();
  showColumns();
  showSelection();
  if (others && current.isValid() && model_->rowCount() > 0 && current.column() < model_->columnCount()) {
    const int row = std::min(current.row(), model_->rowCount() - 1);
    selectionModel()->setCurrentIndex(model_->index(row, current.column()), QItemSelectionModel::NoUpdate);
  }
  viewport()->update();
}

// A record's preview stands in the record's own row. Qt adds up heights in an int, which many rows fill.
void GridView::showHeights() {
  const RowSizes sizes = RowSizes::of(*model_);
  const std::int64_t rows = std::max(1, model_->rowCount());
  const auto most = static_cast<int>(std::numeric_limits<int>::max() / rows);
  const int line = std::min(sizes.line, most), record = std::min(sizes.line + sizes.preview, most);
  const Heights wanted{line, record, record == line ? 0 : engine()->arrangement(), model_->rowCount()};
  if (std::exchange(heights_, wanted) == wanted) return;
  {
    QHeaderView& heights = *verticalHeader();
    const QSignalBlocker quiet(heights);
    heights.setUpdatesEnabled(false);  // else each of the sizes below is worked into the view at once
    heights.setDefaultSectionSize(record);
    const auto innermost = static_cast<std::int32_t>(engine()->groups().size()) - 1;
    const int shown =
        record == line || innermost < 0 ? 0 : std::min(model_->rowCount(), engine()->rowCount());
    for (int row = 0; row < shown; ++row) {
      const DisplayRow own = engine()->displayRow(GridModel::positionOf(row));
      if (own.rowType != kRecordRow) heights.resizeSection(row, line);
      if (own.level == innermost && engine()->isExpanded(own)) row += engine()->recordCount(own);
    }
    heights.setUpdatesEnabled(true);
  }
  updateGeometries();
}

void GridView::showColumns() {
  const Following guard(following_);
  QHeaderView& header = *horizontalHeader();
  for (int position = 1; position <= engine()->columnCount(); ++position) {
    const int column = engine()->columnAtPosition(position);
    const int section = column - 1;
    header.moveSection(header.visualIndex(section), position - 1);
    header.setSectionHidden(section, !engine()->column(column).visible);
  }
  showWidths();
  header.viewport()->update();
}

// As wide as the user or a client made them, else as their texts need; stretched or shrunk to the view where
// the grid is set so.
void GridView::showWidths() {
  const Following guard(following_);
  if (naturalWidths_.size() != static_cast<std::size_t>(engine()->columnCount())) return;
  const std::vector<std::int32_t> columns = engine()->visibleColumns();
  const auto wanted = [this](std::int32_t column) {
    const int width = engine()->column(column).width;
    return width > 0 ? width : naturalWidths_[static_cast<std::size_t>(column - 1)];
  };
  std::int64_t left = 0;  // of all columns not yet set
  for (const std::int32_t column : columns) left += wanted(column);
  std::int64_t room = engine()->settings().columnAutoResize ? viewport()->width() : left;
  for (const std::int32_t column : columns) {
    const int width = left > 0 ? static_cast<int>(room * wanted(column) / left) : 0;
    horizontalHeader()->resizeSection(column - 1, width);
    left -= wanted(column);
    room -= width;
  }
}

// Anew for other columns or records only: a group that is closed hides some, but changes no width.
void GridView::measure() {
  if (measuredFields_ == model_->fields() && measuredRecords_ == engine()->records()) return;
  measuredFields_ = model_->fields();
  measuredRecords_ = engine()->records();
  naturalWidths_.clear();
  for (int column = 1; column <= engine()->columnCount(); ++column) {
    naturalWidths_.push_back(naturalWidth(column));
  }
}

int GridView::naturalWidth(int column) const {
  const QFontMetrics metrics = fontMetrics();
  const QFontMetrics header = horizontalHeader()->fontMetrics();
  const int mark = style()->pixelMetric(QStyle::PM_HeaderMarkSize, nullptr, horizontalHeader());
  int width = header.horizontalAdvance(qt(engine()->column(column).caption)) + mark + kCellPadding;
  const int rows = engine()->rowCount();
  const int step = std::max(1, rows / kSampledRows);
  for (int position = 1; position <= rows; position += step) {
    if (engine()->displayRow(position).rowType != kRecordRow) continue;
    const QString text = qt(engine()->displayText(position, column));
    width = std::max(width, metrics.horizontalAdvance(text.left(kWidestLetters)));
  }
  return std::min(width, kWidestLetters * metrics.averageCharWidth()) + 2 * kCellPadding;
}

void GridView::showSelection() {
  const Following guard(following_);
  setSelectionMode(engine()->multiSelect() ? ExtendedSelection : SingleSelection);
  QItemSelection selection;
  const auto& positions = engine()->selection();
  for (std::size_t first = 0; first < positions.size();) {
    std::size_t last = first;
    while (last + 1 < positions.size() && positions[last + 1] == positions[last] + 1) ++last;
    selection.select(model_->index(positions[first] - 1, 0),
                     model_->index(positions[last] - 1, model_->columnCount() - 1));
    first = last + 1;
  }
  selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void GridView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTableView::selectionChanged(selected, deselected);
  if (following_) return;
  std::vector<std::int32_t> positions;
  for (const QItemSelectionRange& range : selectionModel()->selection()) {
    for (int row = range.top(); row <= range.bottom(); ++row) positions.push_back(GridModel::positionOf(row));
  }
  std::sort(positions.begin(), positions.end());
  positions.erase(std::unique(positions.begin(), positions.end()), positions.end());
  const Following guard(following_);
  engine()->select(std::move(positions));
}

// The grid's font once a client sets one; until then the widget's own.
void GridView::showFont() {
  const GridFont& font = engine()->settings().font;
  if (font == font_) return;
  font_ = font;
  setFont(qtFont({font.name, font.size, font.bold, font.italic, font.underline, font.strikethrough, 0}));
}

// The viewport's palette is the view's to set; what it does not set there is the host's.
void GridView::showLook() {
  showFont();
  model_->followLook();
  QPalette palette;
  if (engine()->settings().backColor != kWindowColor) palette.setColor(QPalette::Base, model_->look().base());
  viewport()->setPalette(palette);
}

void GridView::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  if (engine()->settings().columnAutoResize) showWidths();
}

void GridView::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  switch (event->type()) {
    case QEvent::FontChange:
    case QEvent::StyleChange:
    case QEvent::PaletteChange:
      model_->followLook();
      showHeights();
      return;
    default: return;  // of Qt's many events
  }
}

void GridView::paintEvent(QPaintEvent* event) {
  QTableView::paintEvent(event);
  QPainter painter(viewport());
  paintFullRows(*this, *model_, painter);
}

QByteArray GridView::saveState() const { return QByteArray::fromStdString(savedView(*engine())); }

bool GridView::restoreState(const QByteArray& state, QStringList* misfits) {
  try {
    const Problems problems = restoreView(*engine(), state.toStdString());
    if (misfits) {
      for (const std::string& message : problems.messages()) misfits->append(qt(message));
    }
    return true;
  } catch (const Error& error) {
    if (misfits) misfits->append(qt(error.description()));
    return false;
  }
}

void GridView::undo() {
  if (engine()->redraw() && engine()->canUndo()) engine()->undo();
}

void GridView::redo() {
  if (engine()->redraw() && engine()->canRedo()) engine()->redo();
}

}  // namespace vmgv

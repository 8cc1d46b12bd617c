#include "frontends/qt/grid_view.h"

#include <QEvent>
#include <algorithm>
#include <utility>

#include "frontends/qt/grid_header.h"
#include "frontends/qt/item_model_source.h"
#include "frontends/qt/units.h"

namespace vmgv {
namespace {

constexpr int kSampledRows = 200;  // looked at for a column's first width
constexpr int kWidestLetters = 36;
constexpr int kPadding = 8;  // of a cell's text, both sides

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

bool sameFont(const GridFont& a, const GridFont& b) {
  return a.name == b.name && a.size == b.size && a.bold == b.bold && a.italic == b.italic &&
         a.underline == b.underline && a.strikethrough == b.strikethrough;
}

}  // namespace

GridView::GridView(QWidget* parent) : QTableView(parent), model_(new GridModel(this)) {
  QTableView::setModel(model_);
  setHorizontalHeader(new GridHeader(*model_, this));
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
    if (!following_ && size > 0) engine()->setWidth(GridModel::columnOf(section), size);
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
  naturalWidths_.clear();
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
  showFont();
  showWidths();
  viewport()->update();
}

void GridView::refreshRows() {
  const Following guard(following_);
  if (model_->refresh() || naturalWidths_.empty()) {
    naturalWidths_.clear();
    for (int column = 1; column <= engine()->columnCount(); ++column) {
      naturalWidths_.push_back(naturalWidth(column));
    }
    showFont();
  }
  showColumns();
  showSelection();
  viewport()->update();
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

int GridView::naturalWidth(int column) const {
  const QFontMetrics metrics = fontMetrics();
  const QFontMetrics header = horizontalHeader()->fontMetrics();
  const int mark = style()->pixelMetric(QStyle::PM_HeaderMarkSize, nullptr, horizontalHeader());
  int width = header.horizontalAdvance(qt(engine()->column(column).caption)) + mark + kPadding;
  const int rows = engine()->rowCount();
  const int step = std::max(1, rows / kSampledRows);
  for (int position = 1; position <= rows; position += step) {
    const QString text = qt(engine()->displayText(position, column));
    width = std::max(width, metrics.horizontalAdvance(text.left(kWidestLetters)));
  }
  return std::min(width, kWidestLetters * metrics.averageCharWidth()) + 2 * kPadding;
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
  if (!sameFont(font, font_)) {
    font_ = font;
    setFont(qtFont({font.name, font.size, font.bold, font.italic, font.underline, font.strikethrough, 0}));
  }
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kPadding);
}

void GridView::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  if (engine()->settings().columnAutoResize) showWidths();
}

void GridView::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kPadding);
  }
}

}  // namespace vmgv

#include "adapters/grid/pages/page_layout.h"

#include <algorithm>
#include <limits>

#include "support/automation/error.h"

namespace vmgv {
namespace {

constexpr double kLeastRoom = 72;           // an inch
constexpr double kPointsPerPixel = 0.75;    // of a column's width, at 96 pixels an inch
constexpr double kReadableSize = 6.5;       // the least size of a font that is made to fit
constexpr double kLargestShare = 1.0 / 12;  // of the area's height that the largest font may take
constexpr double kLargestMarginFont = 10;
constexpr double kWidestColumn = 20;       // in sizes of the font, where nobody has set a width
constexpr std::size_t kWidestBytes = 200;  // that such a column shows at most
constexpr std::int32_t kSampledCells = 20000;
constexpr double kPadding = 5, kGap = 1.75, kTitleGap = 3, kMarginGap = 8, kIndent = 10;
constexpr double kTextShare = 0.5;  // of the page, where the columns are narrower

}  // namespace

PageRect PageLayout::within(const PageSetup& setup) {
  const PageRect area{setup.left, setup.top, setup.paper.width - setup.left - setup.right,
                      setup.paper.height - setup.top - setup.bottom};
  if (area.width >= kLeastRoom && area.height >= kLeastRoom) return area;
  throw Error(ErrorNumber::Printer,
              "The grid cannot be printed: the margins leave less than an inch of the paper");
}

PageLayout::PageLayout(const GridEngine& engine, PageFonts& fonts, bool onlySelected)
    : area_(within(engine.printer().setup)),
      fonts_(fonts, area_.height * kLargestShare),
      rows_(engine, onlySelected),
      repeatHeaders_(engine.printer().repeatHeaders),
      mostPreviewLines_(engine.previewLines()) {
  GridFont font = engine.settings().font;
  font.size = std::min(font.size, kLargestMarginFont);
  font.italic = font.underline = font.strikethrough = false;
  margin_ = &fonts_.of(font, false);
  marginBold_ = &fonts_.of(font, true);
  marginHeight_ = marginBold_->ruler.lineHeight() + kMarginGap;

  const double size = fonts_.of(engine.settings().font).font.size;
  bands_ = fitColumns(naturalColumns(engine), area_.width, std::min(1.0, kReadableSize / size),
                      engine.settings().columnAutoResize);
  fonts_.scale = bands_.scale;
  measureHeights(engine);
  const double body = area_.height - 2 * marginHeight_;
  starts_ =
      breakPages(rows_.count(),
                 [&](std::int32_t row) { return heightOf(engine, engine.displayRow(rows_.position(row))); },
                 {body - titleHeight_, body - (repeatHeaders_ ? titleHeight_ : 0)});
}

double PageLayout::padding() const noexcept { return kPadding * bands_.scale; }
double PageLayout::gap() const noexcept { return kGap * bands_.scale; }
double PageLayout::indent() const noexcept { return kIndent * bands_.scale; }

// As the user or a client made them, else as wide as the texts of rows all over the grid. Of a number, which
// would be another one with digits cut off, those with the most digits are among them.
std::vector<PageColumn> PageLayout::naturalColumns(const GridEngine& engine) const {
  const GridFont& own = engine.settings().font;
  const double widest = kWidestColumn * fonts_.of(own).font.size;
  std::vector<PageColumn> columns;
  for (const std::int32_t index : engine.visibleColumns()) {
    const GridColumn& column = engine.column(index);
    const double title = fonts_.of(own, true).ruler.width(column.caption.substr(0, kWidestBytes));
    columns.push_back({index, column.width > 0 ? column.width * kPointsPerPixel : title});
  }
  const auto widen = [&](PageColumn& column, const DisplayRow& row) {
    if (engine.column(column.index).width > 0) return;
    const GridFont& font = row.rowType == kRecordRow ? engine.styleOf(row).font : own;
    std::string text = engine.displayText(row, column.index);
    if (text.size() > kWidestBytes) text.resize(kWidestBytes);
    column.width = std::max(column.width, fonts_.of(font, row.rowType != kRecordRow).ruler.width(text));
  };
  const auto count = static_cast<std::int32_t>(columns.size());
  const std::int32_t step = std::max(1, rows_.count() / std::max(1, kSampledCells / std::max(1, count)));
  const bool totals = engine.settings().groupFooterStyle == kTotalsGroupFooter && !engine.groups().empty();
  for (std::int32_t row = 0; row < rows_.count(); row += totals ? 1 : step) {
    const DisplayRow shown = engine.displayRow(rows_.position(row));
    const bool outermost = shown.rowType == kGroupFooterRow && shown.level == 0;
    if (shown.rowType == kGroupHeaderRow || (!outermost && row % step != 0)) continue;
    for (PageColumn& column : columns) widen(column, shown);
  }
  for (PageColumn& column : columns) {
    if (engine.records() == 0 || !engine.isSummed(column.index)) continue;
    const auto [least, most] = engine.extremeRecords(column.index);
    for (const std::uint32_t record : {least, most}) widen(column, {.record = record});
  }
  for (PageColumn& column : columns) {
    if (engine.column(column.index).width == 0) column.width = std::min(column.width, widest) + 2 * kPadding;
  }
  return columns;
}

void PageLayout::measureHeights(const GridEngine& engine) {
  const GridFont& own = engine.settings().font;
  own_ = &fonts_.of(own);
  previewLine_ = own_->ruler.lineHeight();
  const double bold = fonts_.of(own, true).ruler.lineHeight();
  titleHeight_ = bold + 2 * kTitleGap * bands_.scale;
  groupHeight_ = bold + 2 * gap();
  recordHeight_ = bold;
  for (const GridFont& largest : engine.largestFonts()) {
    recordHeight_ = std::max(recordHeight_, fonts_.of(largest).ruler.lineHeight());
  }
  recordHeight_ += 2 * gap();
}

RowHeight PageLayout::heightOf(const GridEngine& engine, const DisplayRow& row) const {
  return {rowHeight(row.rowType), previewLine_, previewLines(engine, row), engine.isExpanded(row)};
}

int PageLayout::previewLines(const GridEngine& engine, const DisplayRow& row) const {
  if (mostPreviewLines_ == 0 || row.rowType != kRecordRow) return 0;
  return countLines(own_->ruler, engine.previewText(row), previewRoom(), mostPreviewLines_);
}

double PageLayout::previewRoom() const noexcept {
  return std::max(widthOf(bands_.bands.front()), area_.width * kTextShare) - previewIndent() - padding();
}

std::int32_t PageLayout::count() const {
  const std::size_t pages = (starts_.size() - 1) * bands_.bands.size();
  if (pages <= std::numeric_limits<std::int32_t>::max()) return static_cast<std::int32_t>(pages);
  throw Error(ErrorNumber::Printer, "The grid cannot be printed: on this paper it has too many pages");
}

PageLayout::Page PageLayout::page(std::int32_t fromOne) const {
  const auto number = static_cast<std::size_t>(fromOne) - 1;
  const std::size_t band = number % bands_.bands.size(), down = number / bands_.bands.size();
  const PageBand& columns = bands_.bands[band];
  return {columns,       band == 0,         repeatHeaders_ || down == 0,
          starts_[down], starts_[down + 1], std::max(widthOf(columns), area_.width * kTextShare)};
}

}  // namespace vmgv

#include "adapters/grid/pages/grid_pages.h"

#include <algorithm>

#include "adapters/grid/pages/page_painter.h"
#include "support/automation/error.h"

namespace vmgv {
namespace {

constexpr const char* kNoTitle = "vmGridViews";  // of a document without a header

}  // namespace

GridPages::GridPages(std::shared_ptr<GridEngine> engine, std::shared_ptr<EventSource> events,
                     bool onlySelected)
    : engine_(std::move(engine)), events_(std::move(events)), onlySelected_(onlySelected) {
  engine_->addObserver(this);
}

GridPages::~GridPages() { engine_->removeObserver(this); }

void GridPages::selectionChanged() {
  if (onlySelected_) layout_.reset();
}

PrintPort& GridPages::port() const {
  if (PrintPort* port = engine_->printPort()) return *port;
  throw Error(ErrorNumber::Printer, "The grid cannot be printed: its program has no printing");
}

const PageLayout& GridPages::layout() {
  const PrinterProperties& printer = engine_->printer();
  const bool same =
      laidOutBy_ == &port() && laidOutOn_ == printer.setup && repeatsHeaders_ == printer.repeatHeaders;
  if (!same || !layout_) {
    layout_.emplace(*engine_, port().fonts(), onlySelected_);
    laidOutBy_ = &port();
    laidOutOn_ = printer.setup;
    repeatsHeaders_ = printer.repeatHeaders;
  }
  return *layout_;
}

void GridPages::draw(std::int32_t page, PageSurface& surface) {
  if (page < 1 || page > count()) {
    throw Error(ErrorNumber::SubscriptOutOfRange, "Subscript out of range: there is no page " +
                                                      std::to_string(page) + " among " +
                                                      std::to_string(count()));
  }
  const Value parameters[] = {page, count()};
  events_->raise("BeforePrintPage", parameters);
  // A listener may have changed the paper.
  if (page <= count()) PagePainter(*engine_, layout(), surface).draw(page);
}

void GridPages::setUp() {
  PageSetup changed = setup();
  if (port().askPageSetup(changed)) setup() = changed;
}

void GridPages::print(bool showDialog) {
  PrintOrder order;
  if (showDialog) {
    PageSetup changed = setup();
    const std::optional<PrintOrder> asked = port().askPrint(changed, count());
    if (!asked) return;
    setup() = changed;
    order = *asked;
  }
  print(order);
}

void GridPages::print(const PrintOrder& order) {
  const std::int32_t last = std::min(order.lastPage, count());
  const std::string& title = engine_->printer().header[0];
  const std::unique_ptr<PrintJob> job = port().start(setup(), order, title.empty() ? kNoTitle : title);
  for (std::int32_t page = std::max(order.firstPage, 1); page <= last; ++page) {
    draw(page, job->startPage());
    job->endPage();
  }
  job->finish();
}

}  // namespace vmgv

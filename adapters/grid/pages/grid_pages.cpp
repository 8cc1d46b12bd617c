#include "adapters/grid/pages/grid_pages.h"

#include <algorithm>

#include "adapters/grid/pages/page_painter.h"
#include "support/automation/error.h"
#include "support/text/utf8.h"

namespace vmgv {
namespace {

constexpr const char* kNoTitle = "vmGridViews";  // of a document without a header
constexpr int kTitleCharacters = 80;             // printers take no endless one

std::string titleOf(const std::string& header) {
  std::string_view rest = header;
  for (int i = 0; i < kTitleCharacters && !rest.empty(); ++i) takeCodePoint(rest);
  return header.empty() ? kNoTitle : header.substr(0, header.size() - rest.size());
}

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
  const std::int32_t first = std::max(order.firstPage, 1), last = std::min(order.lastPage, count());
  if (first > last) {
    throw Error(ErrorNumber::Printer, "There are no pages from " + std::to_string(order.firstPage) + " to " +
                                          std::to_string(order.lastPage) + " among " +
                                          std::to_string(count()));
  }
  const std::unique_ptr<PrintJob> job = port().start(setup(), order, titleOf(engine_->printer().header[0]));
  for (std::int32_t page = first; page <= last; ++page) {
    draw(page, job->startPage());
    job->endPage();
  }
  job->finish();
}

}  // namespace vmgv

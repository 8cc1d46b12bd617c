// A grid as pages to be seen and printed: its rows as they are displayed, in the look that conditions give.
//
// Each page has the printer properties' header above and their footer below it, at the positions 1 left,
// 2 centre and 3 right, one line each. Before a page is drawn, and before these are read, listeners hear
//   BeforePrintPage(page, pages)
// The pages follow the grid when it changes. Error 482 where the grid has no port to print by, where the
// paper leaves no room, and where the printer fails.
#pragma once

#include <memory>
#include <optional>

#include "adapters/grid/engine.h"
#include "adapters/grid/pages/page_layout.h"
#include "support/automation/events.h"
#include "support/pages/page_source.h"
#include "support/pages/print_port.h"

namespace vmgv {

class GridPages final : public PageSource, private GridObserver {
 public:
  // `onlySelected`: the selected rows, below the headers of their groups.
  GridPages(std::shared_ptr<GridEngine> engine, std::shared_ptr<EventSource> events, bool onlySelected);
  ~GridPages() override;
  GridPages(const GridPages&) = delete;
  GridPages& operator=(const GridPages&) = delete;

  std::int32_t count() override { return layout().count(); }
  PageSize paper() override { return setup().paper; }
  void draw(std::int32_t page, PageSurface& surface) override;
  void setUp() override;
  void print(bool showDialog) override;
  void print(const PrintOrder& order);

 private:
  void layoutChanged() override { layout_.reset(); }
  void rowsChanged() override { layout_.reset(); }
  void selectionChanged() override;
  void appearanceChanged() override { layout_.reset(); }

  PrintPort& port() const;
  PageSetup& setup() const { return engine_->printer().setup; }
  const PageLayout& layout();

  std::shared_ptr<GridEngine> engine_;
  std::shared_ptr<EventSource> events_;
  bool onlySelected_;
  // The layout, and what it was made for.
  std::optional<PageLayout> layout_;
  PrintPort* laidOutBy_ = nullptr;
  PageSetup laidOutOn_;
  bool repeatsHeaders_ = false;
};

}  // namespace vmgv

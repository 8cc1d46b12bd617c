#include "hosts/gridhost/report.h"

#include "adapters/grid/pages/grid_pages.h"
#include "support/automation/convert.h"
#include "support/strings/format_message.h"
#include "support/strings/string_module.h"

namespace vmgv {
namespace {

class PageCounter final : public EventSink {
 public:
  explicit PageCounter(std::string& text) : text_(text), pattern_(strings_.GetResString(Text::PageOf)) {}
  void raised(std::string_view, std::span<const Value> pageAndCount) override {
    text_ = FormatMessage(pattern_, pageAndCount);
  }

 private:
  std::string& text_;
  MlStringModule strings_;
  std::string pattern_;
};

}  // namespace

std::int32_t printReport(const std::shared_ptr<GridEngine>& engine, SystemPort& system,
                         const std::string& file) {
  PrinterProperties& printer = engine->printer();
  printer.translateColors = printer.repeatHeaders = true;
  printer.footer[1] = system.mediumDate();
  const auto events = std::make_shared<EventSource>();
  PageCounter counter(printer.footer[2]);
  const std::shared_ptr<void> counting = events->connect(counter);
  GridPages pages(engine, events, false);
  PrintOrder order;
  order.file = file;
  pages.print(order);
  return pages.count();
}

}  // namespace vmgv

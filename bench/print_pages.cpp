// print_pages ROWS.csv: the pages of the benchmarks' rows: their number, without and with wrapped previews,
// and the first and the last one drawn. print_pages ROWS.csv OUT.pdf: all of them as a PDF.
#include "adapters/grid/csv_source.h"
#include "adapters/grid/pages/grid_pages.h"
#include "adapters/pdf/pdf_fonts.h"
#include "adapters/pdf/pdf_job.h"
#include "bench/measure.h"
#include "support/automation/error.h"

namespace vmgv {
namespace {

constexpr std::int32_t kColumns = 8;

class PdfPort final : public PrintPort {
 public:
  PageFonts& fonts() override { return *fonts_; }
  bool askPageSetup(PageSetup&) override { return false; }
  std::optional<PrintOrder> askPrint(PageSetup&, std::int32_t) override { return {}; }
  std::unique_ptr<PrintJob> start(const PageSetup& setup, const PrintOrder& order,
                                  const std::string& title) override {
    return startPdf(order.file, setup, title);
  }

 private:
  std::unique_ptr<PageFonts> fonts_ = makePdfFonts();
};

class Nowhere final : public PageSurface {
 public:
  void fill(const PageRect&, PageColour) override {}
  void line(double, double, double, double, double, PageColour) override {}
  void text(double, double, std::string_view, const PageFont&, PageColour) override {}
  void clip(const PageRect&) override {}
  void unclip() override {}
};

void run(const char* rows, const char* pdf) {
  auto engine = std::make_shared<GridEngine>();
  CsvSource source(rows);
  engine->load(source);
  for (std::int32_t column = kColumns + 1; column <= engine->columnCount(); ++column) {
    engine->setVisible(column, false);
  }
  PdfPort port;
  engine->setPrintPort(&port);
  PrinterProperties& printer = engine->printer();
  printer.setup.paper = {841.89, 595.276};
  printer.header[0] = "Product list / Κατάλογος";
  printer.footer = {"", "21-Nov-26", "Page"};
  engine->rowCount();

  GridPages pages(engine, std::make_shared<EventSource>(), false);
  Nowhere nowhere;
  const auto timed = [](const char* name, auto step) {
    const double start = bench::cpuSeconds();
    step();
    bench::report(name, bench::cpuSeconds() - start);
  };
  const double before = bench::currentMegabytes();
  std::int32_t count = 0;
  timed("count_cpu_s", [&] { count = pages.count(); });
  timed("first_cpu_s", [&] { pages.draw(1, nowhere); });
  timed("last_cpu_s", [&] { pages.draw(count, nowhere); });
  bench::report("pages", count);
  if (pdf) {
    PrintOrder order;
    order.file = pdf;
    const double start = bench::cpuSeconds();
    pages.print(order);
    bench::report("pages_per_cpu_s", count / (bench::cpuSeconds() - start));
  } else {
    engine->setPreviewColumn(std::string("Notes"));
    engine->changeSettings([](GridSettings& settings) { settings.previewRowLines = 3; });
    timed("count_wrapped_cpu_s", [&] { count = pages.count(); });
    bench::report("pages_wrapped", count);
  }
  bench::report("above_load_mb", bench::currentMegabytes() - before);
  engine->setPrintPort(nullptr);
}

}  // namespace
}  // namespace vmgv

int main(int count, char** arguments) {
  if (count != 2 && count != 3) {
    std::fprintf(stderr, "usage: print_pages ROWS.csv [OUT.pdf]\n");
    return 2;
  }
  try {
    vmgv::run(arguments[1], count == 3 ? arguments[2] : nullptr);
    return 0;
  } catch (const vmgv::Error& error) {
    std::fprintf(stderr, "print_pages: %s\n", error.description());
    return 1;
  }
}

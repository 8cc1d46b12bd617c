#include "frontends/qt/qt_printing.h"

#include <QDir>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStandardPaths>

#include "adapters/pdf/pdf_fonts.h"
#include "adapters/pdf/pdf_job.h"
#include "frontends/qt/painter_surface.h"
#include "frontends/qt/units.h"
#include "support/automation/error.h"

namespace vmgv {
namespace {

constexpr int kPrinterError = 482;
constexpr double kMillimetresPerInch = 25.4;

// In millimetres, for Qt has whole points alone.
QPageLayout layoutOf(const PageSetup& setup) {
  constexpr auto mm = [](double points) { return points * kMillimetresPerInch / kPointsPerInch; };
  const QSizeF paper(mm(setup.paper.width), mm(setup.paper.height));
  const bool landscape = paper.width() > paper.height();
  const QPageSize size(landscape ? paper.transposed() : paper, QPageSize::Millimeter, QString(),
                       QPageSize::FuzzyMatch);
  return {size, landscape ? QPageLayout::Landscape : QPageLayout::Portrait,
          QMarginsF(mm(setup.left), mm(setup.top), mm(setup.right), mm(setup.bottom)),
          QPageLayout::Millimeter};
}

PageSetup setupOf(const QPageLayout& layout) {
  constexpr auto points = [](double mm) { return mm * kPointsPerInch / kMillimetresPerInch; };
  const QRectF paper = layout.fullRect(QPageLayout::Millimeter);
  const QMarginsF margins = layout.margins(QPageLayout::Millimeter);
  return {{points(paper.width()), points(paper.height())},
          points(margins.left()),
          points(margins.top()),
          points(margins.right()),
          points(margins.bottom())};
}

class PaperJob final : public PrintJob {
 public:
  PaperJob(QPrinter& printer, const QString& title) : printer_(printer) {
    printer.setDocName(title);
    printer.setFullPage(true);  // margins are the document's own
    check(painter_.begin(&printer));
  }
  ~PaperJob() override {
    if (!painter_.isActive()) return;
    printer_.abort();
    painter_.end();
  }

  PageSurface& startPage() override {
    if (started_) check(printer_.newPage());
    started_ = true;
    painter_.resetTransform();
    const double scale = printer_.resolution() / kPointsPerInch;
    painter_.scale(scale, scale);
    return surface_;
  }
  void endPage() override { check(printer_.printerState() != QPrinter::Error); }
  void finish() override { check(painter_.end() && printer_.printerState() != QPrinter::Error); }

 private:
  void check(bool well) const {
    if (!well) throw Error(kPrinterError, "The printer " + utf8(printer_.printerName()) + " does not print");
  }

  QPrinter& printer_;
  QPainter painter_;
  PainterSurface surface_{painter_};
  bool started_ = false;
};

}  // namespace

QtPrinting::QtPrinting(QtDesktop& desktop)
    : desktop_(desktop),
      fonts_(makePdfFonts()),
      printer_(std::make_unique<QPrinter>(QPrinter::HighResolution)) {}
QtPrinting::~QtPrinting() = default;

bool QtPrinting::askPageSetup(PageSetup& setup) {
  printer_->setPageLayout(layoutOf(setup));
  QPageSetupDialog dialog(printer_.get(), desktop_.owner());
  if (!desktop_.takes(dialog, Box::Kind::PageSetup)) return false;
  setup = setupOf(printer_->pageLayout());
  return true;
}

std::optional<PrintOrder> QtPrinting::askPrint(PageSetup& setup, std::int32_t pages) {
  printer_->setPageLayout(layoutOf(setup));
  if (QPrinterInfo::availablePrinters().isEmpty()) {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    QDir().mkpath(folder);
    printer_->setOutputFileName(folder + QStringLiteral("/vmGridViews.pdf"));
  }
  QPrintDialog dialog(printer_.get(), desktop_.owner());
  dialog.setMinMax(1, pages);
  dialog.setOption(QAbstractPrintDialog::PrintToFile);
  if (!desktop_.takes(dialog, Box::Kind::Print)) return {};
  setup = setupOf(printer_->pageLayout());
  PrintOrder order;
  if (printer_->printRange() == QPrinter::PageRange) {
    order.firstPage = printer_->fromPage();
    order.lastPage = printer_->toPage();
  }
  order.printer = utf8(printer_->printerName());
  order.file = utf8(printer_->outputFileName());
  return order;
}

// A PDF is written by our own means, for the same lines as on the screen and many times faster.
std::unique_ptr<PrintJob> QtPrinting::start(const PageSetup& setup, const PrintOrder& order,
                                            const std::string& title) {
  if (!order.file.empty()) return startPdf(order.file, setup, title);
  if (order.printer.empty()) {
    const QPrinterInfo standard = QPrinterInfo::defaultPrinter();
    if (standard.isNull()) {
      throw Error(kPrinterError, "No printer is installed. Print with the print dialog to write a PDF file.");
    }
    printer_->setPrinterName(standard.printerName());
  }
  printer_->setPageLayout(layoutOf(setup));
  return std::make_unique<PaperJob>(*printer_, qt(title));
}

}  // namespace vmgv

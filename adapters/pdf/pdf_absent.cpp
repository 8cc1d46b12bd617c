// Where there is no library that writes PDF: pages can be counted and drawn elsewhere.
#include "adapters/pdf/pdf_fonts.h"
#include "adapters/pdf/pdf_job.h"
#include "support/automation/error.h"

namespace vmgv {
namespace {

// Of most letters of the grid's usual font, in sizes of the font.
constexpr double kAscent = 0.93, kDescent = 0.24, kAdvance = 0.61, kBoldAdvance = 0.69;

class Estimate final : public PageFontMetrics {
 public:
  explicit Estimate(const PageFont& font) : font_(font) {}
  double ascent() const override { return font_.size * kAscent; }
  double descent() const override { return font_.size * kDescent; }
  double advance(char32_t) const override { return font_.size * (font_.bold ? kBoldAdvance : kAdvance); }

 private:
  PageFont font_;
};

class Estimates final : public PageFonts {
 public:
  std::shared_ptr<const PageFontMetrics> metrics(const PageFont& font) override {
    return std::make_shared<Estimate>(font);
  }
};

}  // namespace

std::unique_ptr<PageFonts> makePdfFonts() { return std::make_unique<Estimates>(); }

std::unique_ptr<PrintJob> startPdf(const std::string& file, const PageSetup&, const std::string&) {
  throw Error(ErrorNumber::Printer, "Cannot write " + file + ": this program writes no PDF on this system");
}

}  // namespace vmgv

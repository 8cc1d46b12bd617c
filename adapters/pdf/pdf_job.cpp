#include "adapters/pdf/pdf_job.h"

#include <cairo-pdf.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <utility>

#include "adapters/pdf/pdf_surface.h"
#include "support/automation/error.h"
#include "support/text/utf8.h"

namespace vmgv {
namespace {

class PdfJob final : public PrintJob {
 public:
  PdfJob(std::string file, const PageSetup& setup, const std::string& title)
      : file_(std::move(file)), part_(file_ + ".part"), stream_(std::fopen(part_.c_str(), "wb")) {
    if (!stream_) fail(errno);
    surface_ = cairo_pdf_surface_create_for_stream(write, this, setup.paper.width, setup.paper.height);
    std::string clean;  // the library makes no document with another title
    const bool isClean = isCleanUtf8(title, clean);
    cairo_pdf_surface_set_metadata(surface_, CAIRO_PDF_METADATA_TITLE, (isClean ? title : clean).c_str());
    cairo_pdf_surface_set_metadata(surface_, CAIRO_PDF_METADATA_CREATOR, "vmGridViews");
    page_ = std::make_unique<PdfSurface>(surface_);
  }
  ~PdfJob() override {
    endDocument();
    if (stream_) std::fclose(stream_);
    if (!finished_) std::remove(part_.c_str());
  }

  PageSurface& startPage() override { return *page_; }
  void endPage() override {
    page_->endPage();
    check(cairo_surface_status(surface_));
  }
  void finish() override {
    check(endDocument());
    if (std::fclose(std::exchange(stream_, nullptr)) != 0) fail(errno);
    std::error_code refused;
    std::filesystem::rename(part_, file_, refused);
    if (refused) fail(refused.value());
    finished_ = true;
  }

 private:
  static cairo_status_t write(void* job, const unsigned char* data, unsigned length) {
    auto& self = *static_cast<PdfJob*>(job);
    if (std::fwrite(data, 1, length, self.stream_) == length) return CAIRO_STATUS_SUCCESS;
    self.errno_ = errno != 0 ? errno : EIO;
    return CAIRO_STATUS_WRITE_ERROR;
  }

  cairo_status_t endDocument() noexcept {
    if (!surface_) return CAIRO_STATUS_SUCCESS;
    page_.reset();
    cairo_surface_finish(surface_);
    const cairo_status_t status = cairo_surface_status(surface_);
    cairo_surface_destroy(std::exchange(surface_, nullptr));
    return status;
  }

  void check(cairo_status_t status) const {
    if (errno_ != 0) fail(errno_);  // which the library does not always tell of
    if (status == CAIRO_STATUS_SUCCESS) return;
    throw Error(ErrorNumber::PathAccess,
                "Cannot make the pages of " + file_ + ": " + cairo_status_to_string(status));
  }
  [[noreturn]] void fail(int reason) const {
    throw Error(ErrorNumber::PathAccess, "Cannot write " + file_ + ": " + std::strerror(reason));
  }

  std::string file_, part_;
  std::FILE* stream_;
  cairo_surface_t* surface_ = nullptr;
  std::unique_ptr<PdfSurface> page_;
  int errno_ = 0;
  bool finished_ = false;
};

}  // namespace

std::unique_ptr<PrintJob> startPdf(const std::string& file, const PageSetup& setup,
                                   const std::string& title) {
  return std::make_unique<PdfJob>(file, setup, title);
}

}  // namespace vmgv

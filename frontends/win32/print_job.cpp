#include "frontends/win32/print_job.h"

#include <optional>

#include "frontends/com/text.h"
#include "frontends/win32/gdi_page.h"
#include "frontends/win32/units.h"
#include "support/automation/error.h"

namespace vmgv {
namespace {


class GdiJob final : public PrintJob {
 public:
  GdiJob(const std::wstring& printer, const DEVMODEW* mode, std::string file, const std::string& title,
         PageFonts& fonts)
      : printer_(narrow(printer)),
        file_(std::move(file)),
        context_(CreateDCW(L"WINSPOOL", printer.c_str(), nullptr, mode)),
        fonts_(fonts) {
    if (!context_) throw Error(ErrorNumber::Printer, "The printer " + printer_ + " does not answer");
    // A unit is a pixel across, and as far down; its origin is the paper's corner, not the printable area's.
    const int across = GetDeviceCaps(context_, LOGPIXELSX), down = GetDeviceCaps(context_, LOGPIXELSY);
    scale_ = across / kPointsPerInch;
    SetMapMode(context_, MM_ANISOTROPIC);
    SetWindowExtEx(context_, across, across, nullptr);
    SetViewportExtEx(context_, across, down, nullptr);
    SetViewportOrgEx(context_, -GetDeviceCaps(context_, PHYSICALOFFSETX),
                     -GetDeviceCaps(context_, PHYSICALOFFSETY), nullptr);
    const std::wstring name = wide(title), target = wide(file_);
    DOCINFOW document{};
    document.cbSize = sizeof document;
    document.lpszDocName = name.c_str();
    document.lpszOutput = target.empty() ? nullptr : target.c_str();
    if (StartDocW(context_, &document) <= 0) {
      DeleteDC(context_);
      fail();
    }
  }
  GdiJob(const GdiJob&) = delete;
  GdiJob& operator=(const GdiJob&) = delete;
  ~GdiJob() override {
    page_.reset();
    if (!finished_) AbortDoc(context_);
    DeleteDC(context_);
    if (!finished_ && !file_.empty()) DeleteFileW(wide(file_).c_str());
  }

  PageSurface& startPage() override {
    if (StartPage(context_) <= 0) fail();
    return page_.emplace(context_, POINT{0, 0}, scale_, fonts_);
  }
  void endPage() override {
    page_.reset();
    if (EndPage(context_) <= 0) fail();
  }
  void finish() override {
    if (EndDoc(context_) <= 0) fail();
    finished_ = true;
  }

 private:
  [[noreturn]] void fail() const {
    if (file_.empty())
      throw Error(ErrorNumber::Printer, "The printer " + printer_ + " has stopped the document");
    throw Error(ErrorNumber::PathAccess, "The file " + file_ + " cannot be written");
  }

  std::string printer_, file_;
  HDC context_;
  PageFonts& fonts_;
  double scale_ = 1;  // units a point
  std::optional<GdiPage> page_;
  bool finished_ = false;
};

}  // namespace

std::unique_ptr<PrintJob> startPrinting(const std::wstring& printer, const DEVMODEW* mode,
                                        const std::string& file, const std::string& title, PageFonts& fonts) {
  return std::make_unique<GdiJob>(printer, mode, file, title, fonts);
}

}  // namespace vmgv

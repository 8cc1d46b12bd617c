// Paper for tests: a printer and pages in memory. All characters are half as wide as their font is high.
#pragma once

#include <deque>

#include "adapters/grid/pages/grid_pages.h"
#include "support/pages/page_objects.h"
#include "tests/grid/fixture.h"

namespace vmgv {

class HalfWideFonts final : public PageFonts {
 public:
  std::shared_ptr<const PageFontMetrics> metrics(const PageFont& font) override {
    struct Metrics final : PageFontMetrics {
      explicit Metrics(double fontSize) : size(fontSize) {}
      double ascent() const override { return size * 0.8; }
      double descent() const override { return size * 0.2; }
      double advance(char32_t) const override { return size / 2; }
      double size;
    };
    return std::make_shared<Metrics>(font.size);
  }
};

struct PageText {
  double x = 0, baseline = 0;
  std::string text;
  PageFont font;
  PageColour colour = 0;
};

class RecordedPage final : public PageSurface {
 public:
  void fill(const PageRect& rect, PageColour colour) override { fills.emplace_back(rect, colour); }
  void line(double, double, double, double, double, PageColour) override {}
  void text(double x, double baseline, std::string_view text, const PageFont& font,
            PageColour colour) override {
    texts.push_back({x, baseline, std::string(text), font, colour});
  }
  void clip(const PageRect&) override {}
  void unclip() override {}
  bool shows(std::string_view text) const {
    return std::any_of(texts.begin(), texts.end(), [&](const PageText& t) { return t.text == text; });
  }

  std::vector<PageText> texts;
  std::vector<std::pair<PageRect, PageColour>> fills;
};

// Prints into memory; answers its dialogs as it was told.
class MemoryPrinter final : public PrintPort {
 public:
  PageFonts& fonts() override { return fonts_; }
  bool askPageSetup(PageSetup& given) override { return take(given); }
  std::optional<PrintOrder> askPrint(PageSetup& given, std::int32_t count) override {
    askedFor = count;
    return take(given) ? std::optional(chosen) : std::nullopt;
  }
  std::unique_ptr<PrintJob> start(const PageSetup& used, const PrintOrder&,
                                  const std::string& title) override {
    struct Job final : PrintJob {
      explicit Job(MemoryPrinter& owner) : printer(owner) {}
      ~Job() override { --printer.openJobs; }
      PageSurface& startPage() override {
        if (static_cast<int>(printer.pages.size()) + 1 == printer.failsAt) {
          throw Error(ErrorNumber::Printer, "out of paper");
        }
        return printer.pages.emplace_back();
      }
      void endPage() override {}
      void finish() override { printer.finished = true; }
      MemoryPrinter& printer;
    };
    pages.clear();
    finished = false;
    paper = used.paper;
    titles.push_back(title);
    ++openJobs;
    return std::make_unique<Job>(*this);
  }

  std::optional<PageSetup> setup;  // that its dialogs are left with; none: Cancel
  PrintOrder chosen;
  int failsAt = 0;  // the page, from 1
  std::int32_t askedFor = 0;
  std::deque<RecordedPage> pages;
  PageSize paper;
  std::vector<std::string> titles;
  int openJobs = 0;
  bool finished = false;

 private:
  bool take(PageSetup& given) {
    if (setup) given = *setup;
    return setup.has_value();
  }
  HalfWideFonts fonts_;
};

}  // namespace vmgv

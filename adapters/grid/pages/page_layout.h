// What all pages of a grid have in common, and where each of them begins: worked out in one pass over the
// rows before any page is drawn. Lengths are in points.
#pragma once

#include <vector>

#include "adapters/grid/pages/page_bands.h"
#include "adapters/grid/pages/page_breaks.h"
#include "adapters/grid/pages/page_rows.h"
#include "adapters/grid/pages/paper_fonts.h"
#include "support/pages/page_setup.h"

namespace vmgv {

class PageLayout {
 public:
  // Error 482 where the margins leave less than an inch of the paper.
  PageLayout(const GridEngine& engine, PageFonts& fonts, bool onlySelected);

  std::int32_t count() const;  // Error 482 beyond 31 bits
  const PageRows& rows() const noexcept { return rows_; }

  // Pages side by side come before those below them.
  struct Page {
    const PageBand& columns;
    bool isFirstBand = true;  // which alone has the previews' texts
    bool hasTitles = true;    // of the columns
    PageStart begin, end;
    double textWidth = 0;  // of rows that are one text
  };
  Page page(std::int32_t fromOne) const;

  const PageRect& area() const noexcept { return area_; }  // within the margins
  double bodyTop() const noexcept { return area_.top + marginHeight_; }
  double titleHeight() const noexcept { return titleHeight_; }
  double rowHeight(std::int32_t rowType) const noexcept {
    return rowType == kRecordRow ? recordHeight_ : groupHeight_;
  }
  double previewLine() const noexcept { return previewLine_; }
  int previewLines(const GridEngine& engine, const DisplayRow& row) const;
  int mostPreviewLines() const noexcept { return mostPreviewLines_; }
  double previewIndent() const noexcept { return 3 * padding(); }
  double previewRoom() const noexcept;
  double padding() const noexcept;  // at the sides of a text
  double gap() const noexcept;      // above and below a row's text
  double indent() const noexcept;   // of a group in another one

  const PaperFonts& fonts() const noexcept { return fonts_; }
  const PaperFont& marginFont(bool bold) const { return bold ? *marginBold_ : *margin_; }

 private:
  static PageRect within(const PageSetup& setup);
  std::vector<PageColumn> naturalColumns(const GridEngine& engine) const;
  void measureHeights(const GridEngine& engine);
  RowHeight heightOf(const GridEngine& engine, const DisplayRow& row) const;

  PageRect area_;
  PaperFonts fonts_;
  PageRows rows_;
  PageBands bands_;
  bool repeatHeaders_;
  const PaperFont *margin_ = nullptr, *marginBold_ = nullptr, *own_ = nullptr;
  double marginHeight_ = 0, titleHeight_ = 0, recordHeight_ = 0, groupHeight_ = 0, previewLine_ = 0;
  int mostPreviewLines_ = 0;
  std::vector<PageStart> starts_;  // and the end
};

}  // namespace vmgv

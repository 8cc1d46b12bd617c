// Pages of a PDF as something to draw on.
#pragma once

#include <cairo.h>

#include <vector>

#include "adapters/pdf/font_faces.h"

namespace vmgv {

class PdfSurface final : public PageSurface {
 public:
  explicit PdfSurface(cairo_surface_t* pages) : cairo_(cairo_create(pages)) {}
  PdfSurface(const PdfSurface&) = delete;
  PdfSurface& operator=(const PdfSurface&) = delete;
  ~PdfSurface() override { cairo_destroy(cairo_); }

  void fill(const PageRect& rect, PageColour colour) override;
  void line(double x1, double y1, double x2, double y2, double width, PageColour colour) override;
  void text(double x, double baseline, std::string_view text, const PageFont& font,
            PageColour colour) override;
  void clip(const PageRect& rect) override;
  void unclip() override;
  void endPage();

 private:
  void use(PageColour colour);
  void useFace(const FontFace& face);
  void flush();
  void strike(double x, double y, double width, const PageFont& font, PageColour colour);

  cairo_t* cairo_;
  // Glyphs that wait for others of their font and colour: many at once cost less.
  std::vector<cairo_glyph_t> glyphs_;
  PageFont font_;
  const FontFamily* family_ = nullptr;  // of font_
  const FontFace* face_ = nullptr;      // of the glyphs
  PageColour glyphColour_ = 0;
};

}  // namespace vmgv

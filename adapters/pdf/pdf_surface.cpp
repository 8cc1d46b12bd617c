#include "adapters/pdf/pdf_surface.h"

#include "support/text/utf8.h"

namespace vmgv {
namespace {

// In sizes of the font.
constexpr double kLineWidth = 0.06, kUnderline = 0.12, kStruck = -0.28;

}  // namespace

void PdfSurface::use(PageColour colour) {
  const auto part = [colour](int shift) { return (colour >> shift & 0xFF) / 255.0; };
  cairo_set_source_rgb(cairo_, part(16), part(8), part(0));
}

void PdfSurface::fill(const PageRect& rect, PageColour colour) {
  flush();
  use(colour);
  cairo_rectangle(cairo_, rect.left, rect.top, rect.width, rect.height);
  cairo_fill(cairo_);
}

void PdfSurface::line(double x1, double y1, double x2, double y2, double width, PageColour colour) {
  flush();
  use(colour);
  cairo_set_line_width(cairo_, width);
  cairo_move_to(cairo_, x1, y1);
  cairo_line_to(cairo_, x2, y2);
  cairo_stroke(cairo_);
}

void PdfSurface::text(double x, double baseline, std::string_view text, const PageFont& font,
                      PageColour colour) {
  if (!family_ || font != font_ || colour != glyphColour_) {
    flush();
    family_ = &familyOf(font);
    face_ = &family_->main();
    font_ = font;
    glyphColour_ = colour;
  }
  const double start = x;
  while (!text.empty()) {
    const char32_t character = takeCodePoint(text).value_or(U'\uFFFD');
    const FontFace* face = &family_->main();
    FontFace::Glyph glyph = face->glyph(character);
    if (glyph.index == 0) {
      face = &family_->faceOf(character);
      glyph = face->glyph(character);
    }
    if (face != face_) flush(), face_ = face;
    if (character != U' ') glyphs_.push_back({glyph.index, x, baseline});
    x += glyph.advance * font.size;
  }
  if (font.underline) strike(start, baseline + kUnderline * font.size, x - start, font, colour);
  if (font.strikethrough) strike(start, baseline + kStruck * font.size, x - start, font, colour);
}

void PdfSurface::strike(double x, double y, double width, const PageFont& font, PageColour colour) {
  line(x, y, x + width, y, kLineWidth * font.size, colour);
}

void PdfSurface::flush() {
  if (glyphs_.empty()) return;
  use(glyphColour_);
  cairo_set_scaled_font(cairo_, face_->atSize(font_.size));
  cairo_show_glyphs(cairo_, glyphs_.data(), static_cast<int>(glyphs_.size()));
  glyphs_.clear();
}

void PdfSurface::clip(const PageRect& rect) {
  unclip();
  cairo_rectangle(cairo_, rect.left, rect.top, rect.width, rect.height);
  cairo_clip(cairo_);
}

void PdfSurface::unclip() {
  flush();
  cairo_reset_clip(cairo_);
}

void PdfSurface::endPage() {
  unclip();
  cairo_show_page(cairo_);
}

}  // namespace vmgv

#include "adapters/pdf/pdf_fonts.h"

#include "adapters/pdf/font_faces.h"

namespace vmgv {
namespace {

class Metrics final : public PageFontMetrics {
 public:
  explicit Metrics(const PageFont& font) : family_(familyOf(font)), size_(font.size) {}
  double ascent() const override { return family_.main().ascent() * size_; }
  double descent() const override { return family_.main().descent() * size_; }
  double advance(char32_t character) const override {
    return family_.faceOf(character).glyph(character).advance * size_;
  }

 private:
  const FontFamily& family_;
  double size_;
};

class Fonts final : public PageFonts {
 public:
  std::shared_ptr<const PageFontMetrics> metrics(const PageFont& font) override {
    return std::make_shared<Metrics>(font);
  }
};

}  // namespace

std::unique_ptr<PageFonts> makePdfFonts() { return std::make_unique<Fonts>(); }

}  // namespace vmgv

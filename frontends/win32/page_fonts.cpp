#include "frontends/win32/page_fonts.h"

#include <algorithm>
#include <unordered_map>

#include "frontends/com/text.h"

namespace vmgv {
namespace {

constexpr int kEm = 2048;  // pixels of the font that is measured, as most fonts are drawn in

}  // namespace

HFONT makeFont(const PageFont& font, int pixels) noexcept {
  LOGFONTW look{};
  look.lfHeight = -std::max(pixels, 1);  // of the characters
  look.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
  look.lfItalic = font.italic;
  look.lfUnderline = font.underline;
  look.lfStrikeOut = font.strikethrough;
  look.lfCharSet = DEFAULT_CHARSET;
  look.lfQuality = CLEARTYPE_QUALITY;
  const std::wstring name = wide(font.family);
  std::copy_n(name.data(), std::min<std::size_t>(name.size(), LF_FACESIZE - 1), look.lfFaceName);
  return CreateFontIndirectW(&look);
}

// In parts of the font's size.
class GdiPageFonts::Face {
 public:
  Face(HDC context, const PageFont& font) : context_(context), font_(makeFont(font, kEm)) {
    SelectObject(context_, font_);
    TEXTMETRICW metrics{};
    GetTextMetricsW(context_, &metrics);
    ascent = static_cast<double>(metrics.tmAscent) / kEm;
    descent = static_cast<double>(metrics.tmDescent) / kEm;
  }
  Face(const Face&) = delete;
  Face& operator=(const Face&) = delete;
  ~Face() { DeleteObject(font_); }

  double advance(char32_t character) {
    const auto [known, added] = advances_.try_emplace(character);
    if (added) {
      wchar_t units[2]{static_cast<wchar_t>(character)};
      constexpr char32_t kFirstPair = 0x10000, kHalf = 0x400;
      const bool pair = character >= kFirstPair;
      if (pair) {
        units[0] = static_cast<wchar_t>(0xD800 + (character - kFirstPair) / kHalf);
        units[1] = static_cast<wchar_t>(0xDC00 + (character - kFirstPair) % kHalf);
      }
      SelectObject(context_, font_);
      SIZE extent{};
      GetTextExtentPoint32W(context_, units, pair ? 2 : 1, &extent);
      known->second = static_cast<double>(extent.cx) / kEm;
    }
    return known->second;
  }

  double ascent = 0, descent = 0;

 private:
  HDC context_;
  HFONT font_;
  std::unordered_map<char32_t, double> advances_;
};

class GdiPageFonts::Metrics final : public PageFontMetrics {
 public:
  Metrics(std::shared_ptr<Face> face, double size) : face_(std::move(face)), size_(size) {}
  double ascent() const override { return face_->ascent * size_; }
  double descent() const override { return face_->descent * size_; }
  double advance(char32_t character) const override { return face_->advance(character) * size_; }

 private:
  std::shared_ptr<Face> face_;
  double size_;
};

GdiPageFonts::GdiPageFonts() noexcept : context_(CreateCompatibleDC(nullptr)) {}
GdiPageFonts::~GdiPageFonts() {
  faces_.clear();
  DeleteDC(context_);
}

std::shared_ptr<const PageFontMetrics> GdiPageFonts::metrics(const PageFont& font) {
  std::shared_ptr<Face>& face = faces_[{font.family, font.bold, font.italic}];
  if (!face) face = std::make_shared<Face>(context_, font);
  return std::make_shared<Metrics>(face, font.size);
}

}  // namespace vmgv

// How wide texts are in one font on paper, and where they are cut and wrapped. Lengths are in points.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "support/pages/page_fonts.h"

namespace vmgv {

class FontRuler {
 public:
  explicit FontRuler(std::shared_ptr<const PageFontMetrics> metrics);

  double ascent() const noexcept { return ascent_; }
  double lineHeight() const noexcept { return lineHeight_; }
  double advance(char32_t character) const {
    return character < latin_.size() ? latin_[character] : furtherAdvance(character);
  }
  double width(std::string_view text) const;
  // Shortens a text that is wider than the room, "…" at its end. Its width then.
  double fit(std::string& text, double room) const;

 private:
  using Block = std::array<float, 256>;
  double furtherAdvance(char32_t character) const;

  std::shared_ptr<const PageFontMetrics> metrics_;
  double ascent_, lineHeight_;
  std::array<float, 128> latin_{};
  mutable std::array<std::unique_ptr<Block>, 256> further_;  // of the first 65,536 characters, as they come
};

// A text line by line: broken behind blanks and hyphens, else where the room ends, and at line feeds.
class LineBreaker {
 public:
  LineBreaker(const FontRuler& ruler, std::string_view text, double room)
      : ruler_(ruler), rest_(text), room_(room) {}

  bool atEnd() const noexcept { return rest_.empty(); }
  // The next line, which holds a character at least; then `rest()` is what follows it.
  std::string_view next();
  std::string_view rest() const noexcept { return rest_; }

 private:
  const FontRuler& ruler_;
  std::string_view rest_;
  double room_;
};

// How many lines the text takes, counted up to `most`.
int countLines(const FontRuler& ruler, std::string_view text, double room, int most);

}  // namespace vmgv

// Fonts of the machine as cairo draws them, each loaded once in the process.
#pragma once

#include <cairo.h>

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "support/pages/page_surface.h"

namespace vmgv {

// Of one font at any size. Lengths are in sizes of the font.
class FontFace {
 public:
  struct Glyph {
    std::uint32_t index = 0;  // 0: the font does not have the character
    float advance = 0;
  };

  explicit FontFace(cairo_font_face_t* face);
  FontFace(const FontFace&) = delete;
  FontFace& operator=(const FontFace&) = delete;
  ~FontFace();

  Glyph glyph(char32_t character) const {
    return character < latin_.size() ? latin_[character] : furtherGlyph(character);
  }
  double ascent() const noexcept { return ascent_; }
  double descent() const noexcept { return descent_; }
  cairo_scaled_font_t* atSize(double points) const;

 private:
  Glyph load(char32_t character) const;
  Glyph furtherGlyph(char32_t character) const;

  cairo_font_face_t* face_;
  double ascent_ = 0, descent_ = 0;
  std::array<Glyph, 128> latin_;
  mutable std::unordered_map<char32_t, Glyph> further_;
  mutable std::vector<std::pair<double, cairo_scaled_font_t*>> sizes_;
};

// A font and those that stand in for it, character by character.
class FontFamily {
 public:
  FontFamily(std::string name, bool bold, bool italic);

  const FontFace& main() const noexcept { return *main_; }
  // The main face wherever no other one has the character.
  const FontFace& faceOf(char32_t character) const;

 private:
  std::string name_;
  bool bold_, italic_;
  std::shared_ptr<const FontFace> main_;
  mutable std::unordered_map<char32_t, std::shared_ptr<const FontFace>> others_;
};

// Stays for the life of the process.
const FontFamily& familyOf(const PageFont& font);

}  // namespace vmgv

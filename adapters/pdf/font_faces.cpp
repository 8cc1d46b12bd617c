#include "adapters/pdf/font_faces.h"

#include <cairo-ft.h>
#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <map>
#include <tuple>

namespace vmgv {
namespace {

constexpr double kUnitsSize = 1000;  // metrics are taken at this size, where nothing is rounded

struct FontconfigDeleter {
  void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
  void operator()(FcConfig* fonts) const { FcConfigDestroy(fonts); }
};
using Pattern = std::unique_ptr<FcPattern, FontconfigDeleter>;

// The machine's fonts, apart from what a toolkit in the process keeps of them.
FcConfig* machineFonts() {
  static const std::unique_ptr<FcConfig, FontconfigDeleter> fonts(FcInitLoadConfigAndFonts());
  return fonts.get();
}

// Null where the machine has no font at all.
Pattern bestMatch(const std::string& family, bool bold, bool italic, char32_t character) {
  const Pattern wanted(FcPatternCreate());
  FcPatternAddString(wanted.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(family.c_str()));
  FcPatternAddInteger(wanted.get(), FC_WEIGHT, bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
  FcPatternAddInteger(wanted.get(), FC_SLANT, italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
  FcPatternAddBool(wanted.get(), FC_OUTLINE, FcTrue);
  if (character != 0) {
    FcCharSet* characters = FcCharSetCreate();
    FcCharSetAddChar(characters, character);
    FcPatternAddCharSet(wanted.get(), FC_CHARSET, characters);
    FcCharSetDestroy(characters);
  }
  FcConfigSubstitute(machineFonts(), wanted.get(), FcMatchPattern);
  FcDefaultSubstitute(wanted.get());
  FcResult result = FcResultMatch;
  return Pattern(FcFontMatch(machineFonts(), wanted.get(), &result));
}

// The file stays open for the life of the process.
cairo_font_face_t* openFace(const std::string& file, int index, unsigned synthesis) {
  static FT_Library library = [] {
    FT_Library made = nullptr;
    FT_Init_FreeType(&made);
    return made;
  }();
  FT_Face face = nullptr;
  if (FT_New_Face(library, file.c_str(), index, &face) != 0) {  // there is no font
    return cairo_toy_font_face_create("", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
  }
  cairo_font_face_t* made = cairo_ft_font_face_create_for_ft_face(face, 0);
  cairo_ft_font_face_set_synthesize(made, synthesis);
  return made;
}

// One face for each font in a file, whatever asks for it: a PDF embeds it once.
std::shared_ptr<const FontFace> faceOf(const Pattern& match) {
  FcChar8* file = nullptr;
  int index = 0;
  FcBool bold = FcFalse;
  FcMatrix* slanted = nullptr;
  if (match) {
    FcPatternGetString(match.get(), FC_FILE, 0, &file);
    FcPatternGetInteger(match.get(), FC_INDEX, 0, &index);
    FcPatternGetBool(match.get(), FC_EMBOLDEN, 0, &bold);
    FcPatternGetMatrix(match.get(), FC_MATRIX, 0, &slanted);
  }
  unsigned synthesis = 0;
  if (bold) synthesis |= CAIRO_FT_SYNTHESIZE_BOLD;
  if (slanted) synthesis |= CAIRO_FT_SYNTHESIZE_OBLIQUE;
  const std::string name = file ? reinterpret_cast<const char*>(file) : "";
  static std::map<std::tuple<std::string, int, unsigned>, std::shared_ptr<const FontFace>> known;
  auto& face = known[{name, index, synthesis}];
  if (!face) face = std::make_shared<FontFace>(openFace(name, index, synthesis));
  return face;
}

}  // namespace

FontFace::FontFace(cairo_font_face_t* face) : face_(face) {
  cairo_font_extents_t extents;
  cairo_scaled_font_extents(atSize(kUnitsSize), &extents);
  ascent_ = extents.ascent / kUnitsSize;
  descent_ = extents.descent / kUnitsSize;
  for (char32_t c = 0; c < latin_.size(); ++c) latin_[c] = load(c < U' ' ? U' ' : c);
}

FontFace::~FontFace() {
  for (const auto& [size, font] : sizes_) cairo_scaled_font_destroy(font);
  cairo_font_face_destroy(face_);
}

cairo_scaled_font_t* FontFace::atSize(double points) const {
  for (const auto& [size, font] : sizes_) {
    if (size == points) return font;
  }
  cairo_matrix_t size, place;
  cairo_matrix_init_scale(&size, points, points);
  cairo_matrix_init_identity(&place);
  cairo_font_options_t* options = cairo_font_options_create();
  cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
  cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
  cairo_scaled_font_t* font = cairo_scaled_font_create(face_, &size, &place, options);
  cairo_font_options_destroy(options);
  sizes_.emplace_back(points, font);
  return font;
}

FontFace::Glyph FontFace::load(char32_t character) const {
  cairo_scaled_font_t* font = atSize(kUnitsSize);
  FT_Face face = cairo_ft_scaled_font_lock_face(font);
  if (!face) return {};
  cairo_glyph_t glyph{FT_Get_Char_Index(face, character), 0, 0};
  cairo_ft_scaled_font_unlock_face(font);
  cairo_text_extents_t extents;
  cairo_scaled_font_glyph_extents(font, &glyph, 1, &extents);
  return {static_cast<std::uint32_t>(glyph.index), static_cast<float>(extents.x_advance / kUnitsSize)};
}

FontFace::Glyph FontFace::furtherGlyph(char32_t character) const {
  const auto found = further_.find(character);
  return found != further_.end() ? found->second : further_.emplace(character, load(character)).first->second;
}

FontFamily::FontFamily(std::string name, bool bold, bool italic)
    : name_(std::move(name)),
      bold_(bold),
      italic_(italic),
      main_(vmgv::faceOf(bestMatch(name_, bold, italic, 0))) {}

const FontFace& FontFamily::faceOf(char32_t character) const {
  if (main_->glyph(character).index != 0) return *main_;
  const auto found = others_.find(character);
  if (found != others_.end()) return *found->second;
  std::shared_ptr<const FontFace> other = vmgv::faceOf(bestMatch(name_, bold_, italic_, character));
  if (other->glyph(character).index == 0) other = main_;
  return *others_.emplace(character, std::move(other)).first->second;
}

const FontFamily& familyOf(const PageFont& font) {
  static std::map<std::tuple<std::string, bool, bool>, FontFamily> known;
  const auto key = std::tuple(font.family, font.bold, font.italic);
  return known.try_emplace(key, font.family, font.bold, font.italic).first->second;
}

}  // namespace vmgv

#include "adapters/grid/pages/font_ruler.h"

#include "support/text/utf8.h"

namespace vmgv {
namespace {

constexpr std::string_view kEllipsis = "…";
constexpr char32_t kEllipsisCharacter = U'…', kReplacement = U'\uFFFD';
constexpr double kMadeToMeasure = 0.01;  // a room is often made to measure

char32_t take(std::string_view& text) {
  const auto byte = static_cast<unsigned char>(text.front());
  if (byte >= 0x80) return takeCodePoint(text).value_or(kReplacement);
  text.remove_prefix(1);
  return byte;
}

}  // namespace

FontRuler::FontRuler(std::shared_ptr<const PageFontMetrics> metrics)
    : metrics_(std::move(metrics)),
      ascent_(metrics_->ascent()),
      lineHeight_(metrics_->ascent() + metrics_->descent()) {
  for (char32_t c = 0; c < latin_.size(); ++c) {
    latin_[c] = static_cast<float>(metrics_->advance(c < U' ' ? U' ' : c));  // shown as blanks
  }
}

double FontRuler::furtherAdvance(char32_t character) const {
  const std::size_t block = character / std::tuple_size_v<Block>;
  if (block >= further_.size()) return metrics_->advance(character);
  if (!further_[block]) further_[block] = std::make_unique<Block>(), further_[block]->fill(-1);
  float& known = (*further_[block])[character % std::tuple_size_v<Block>];
  if (known < 0) known = static_cast<float>(metrics_->advance(character));
  return known;
}

double FontRuler::width(std::string_view text) const {
  double width = 0;
  while (!text.empty()) width += advance(take(text));
  return width;
}

double FontRuler::fit(std::string& text, double room) const {
  room += kMadeToMeasure;
  const double ellipsis = advance(kEllipsisCharacter);
  std::string_view rest = text;
  std::size_t kept = 0;  // bytes that leave room for the ellipsis
  double width = 0, keptWidth = 0;
  while (!rest.empty()) {
    width += advance(take(rest));
    if (width > room) {
      text.resize(kept);
      if (ellipsis > room) return 0;
      text += kEllipsis;
      return keptWidth + ellipsis;
    }
    if (width + ellipsis <= room) {
      kept = text.size() - rest.size();
      keptWidth = width;
    }
  }
  return width;
}

std::string_view LineBreaker::next() {
  const std::string_view text = rest_;
  std::string_view at = text;
  double width = 0;
  std::size_t lineEnd = 0, nextLine = 0;  // of the last place for a break; 0: none yet
  while (!at.empty()) {
    const std::size_t here = text.size() - at.size();
    const char32_t character = take(at);
    const std::size_t behind = text.size() - at.size();
    if (character == U'\n') {
      rest_ = at;
      return text.substr(0, here);
    }
    width += ruler_.advance(character);
    if (character == U' ' || character == U'\t') {
      if (here > 0) lineEnd = here, nextLine = behind;
      continue;  // blanks may stand out at the line's end
    }
    if (width > room_ && here > 0) {
      if (lineEnd == 0) lineEnd = nextLine = here;
      rest_ = text.substr(nextLine);
      return text.substr(0, lineEnd);
    }
    if (character == U'-') lineEnd = nextLine = behind;
  }
  rest_ = {};
  return text;
}

int countLines(const FontRuler& ruler, std::string_view text, double room, int most) {
  LineBreaker breaker(ruler, text, room);
  int lines = 0;
  for (; lines < most && !breaker.atEnd(); ++lines) breaker.next();
  return lines;
}

}  // namespace vmgv

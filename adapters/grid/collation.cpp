#include "adapters/grid/collation.h"

#include <algorithm>
#include <array>

#include "adapters/grid/fold_table.h"
#include "support/text/utf8.h"

namespace vmgv {
namespace {

// Lead bytes of characters that are written out by code point.
constexpr char kOtherMark = 0x22;
constexpr char kOtherLetter = 0x7F;

constexpr std::array<Letter, 128> kAscii = [] {
  std::array<Letter, 128> letters{};
  std::uint8_t mark = 0;
  for (std::uint8_t c = 0; c < 128; ++c) {
    Letter& letter = letters[c];
    if (c >= '0' && c <= '9') {
      letter.weight = static_cast<std::uint8_t>(kDigitWeight + c - '0');
    } else if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z')) {
      letter.weight = static_cast<std::uint8_t>(kLatinWeight + (c | 0x20) - 'a');
      letter.capital = c < 'a';
    } else {
      letter.weight = c < ' ' || c == 127 ? 1 : ++mark;  // a tab is a blank
    }
  }
  return letters;
}();

bool isAscii(char c) { return static_cast<signed char>(c) >= 0; }

char weightOf(char ascii) { return static_cast<char>(kAscii[static_cast<unsigned char>(ascii)].weight); }

// Of U+0380 to U+03FF as two bytes, the first of them 0xCE or 0xCF; 0 for all else.
char greekWeight(char lead, char trail) {
  static const std::array<char, 128> weights = [] {
    std::array<char, 128> made{};
    for (char32_t c = 0; c < made.size(); ++c) made[c] = static_cast<char>(letterOf(0x380 + c).weight);
    return made;
  }();
  const auto high = static_cast<unsigned char>(lead) - 0xCEu;
  return high < 2 ? weights[high << 6 | (static_cast<unsigned char>(trail) & 0x3Fu)] : '\0';
}

struct Expansion {
  char32_t character;
  const char* letters;
};
constexpr Expansion kExpansions[] = {{0xC6, "AE"},  {0xE6, "ae"},  {0xDF, "ss"}, {0x1E9E, "SS"},
                                     {0x152, "OE"}, {0x153, "oe"}, {0xDE, "TH"}, {0xFE, "th"},
                                     {0x132, "IJ"}, {0x133, "ij"}};
constexpr std::size_t kOtherBytes = 4;
constexpr std::size_t kMostFolded = 2;    // bytes for each of a text: a letter of two may become four
constexpr char kPlain = 1;                // no accent, no capital
constexpr std::uint8_t kExpanded = 0xFD;  // an accent: "ae" comes before its ligature
constexpr std::uint8_t kSeveral = 0xFE;

bool isMark(char32_t c) { return c < 0xC0 || (c >= 0x2000 && c < 0x2C00) || (c >= 0x3000 && c < 0x3040); }

// Bytes from 0x80 on stand behind a lead byte only, so that a part of a key never begins or ends within one.
char* putOther(char32_t c, char* out) {
  *out++ = isMark(c) ? kOtherMark : kOtherLetter;
  for (int shift = 14; shift >= 0; shift -= 7) *out++ = static_cast<char>(0x80 | (c >> shift & 0x7F));
  return out;
}

const char* expansionOf(char32_t c) {
  for (const Expansion& expansion : kExpansions) {
    if (expansion.character == c) return expansion.letters;
  }
  return nullptr;
}

bool isCombining(char32_t c) { return c >= 0x300 && c < 0x370; }

// The three levels of one key while it is made. Zero separates them, so accents and case start at 1; these
// two end at the last letter that is accented or capital, which for most letters makes nothing to do.
struct Levels {
  std::string& primary;
  std::string accents, capitals;
  std::size_t letters = 0;

  explicit Levels(std::string& key) : primary(key) {}
  void add(Letter letter) {
    primary += static_cast<char>(letter.weight);
    ++letters;
    if (letter.accent != 0) setAccent(letter.accent);
    if (letter.capital) setCapital();
  }
  // The ASCII letters at the start of `text`.
  std::size_t addAscii(std::string_view text) {
    std::size_t length = 0;
    while (length < text.size() && isAscii(text[length])) ++length;
    const std::size_t start = primary.size();
    primary.resize(start + length);
    for (std::size_t i = 0; i < length; ++i) {
      const Letter& letter = kAscii[static_cast<unsigned char>(text[i])];
      primary[start + i] = static_cast<char>(letter.weight);
      ++letters;
      if (letter.capital) setCapital();
    }
    return length;
  }
  void addOther(char32_t c) {
    char bytes[kOtherBytes];
    primary.append(bytes, putOther(c, bytes));
    ++letters;
  }
  void addAccent(int accent) {
    if (letters > 0) setAccent(accents.size() == letters && accents.back() != kPlain ? kSeveral : accent);
  }

 private:
  void setAccent(int accent) {
    accents.resize(letters, kPlain);
    accents.back() = static_cast<char>(accent + kPlain);
  }
  void setCapital() {
    capitals.resize(letters, kPlain);
    capitals.back() = kPlain + 1;
  }
};

void addCharacter(char32_t c, Levels& levels) {
  if (isCombining(c)) return levels.addAccent(static_cast<int>(c - 0x300 + 1));
  const Letter letter = letterOf(c);
  if (letter.weight != 0) return levels.add(letter);
  const char* parts = expansionOf(c);
  if (!parts) return levels.addOther(c);
  for (; *parts; ++parts) {
    Letter plain = kAscii[static_cast<unsigned char>(*parts)];
    plain.accent = kExpanded;
    levels.add(plain);
  }
}

// The texts of a pool on their way into order.
class Ranking {
 public:
  explicit Ranking(const TextPool& texts);
  std::vector<std::uint32_t> ranks();

 private:
  struct Entry {
    std::uint64_t part;  // eight bytes of the key, most significant first
    std::uint32_t code;
  };
  struct Run {  // entries whose keys agree in their first `depth` bytes
    std::size_t begin, end, depth;
  };

  std::string_view key(std::uint32_t code) const {
    return std::string_view(keys_).substr(ends_[code], ends_[code + 1] - ends_[code]);
  }
  std::uint64_t part(std::uint32_t code, std::size_t depth) const;
  bool less(std::uint32_t a, std::uint32_t b) const;
  void sort();
  bool isDone(const Run& run) const;

  const TextPool& texts_;
  std::string keys_;
  std::vector<std::size_t> ends_;
  std::vector<Entry> entries_;
};

constexpr std::size_t kFewEntries = 8;
constexpr std::size_t kPart = sizeof(std::uint64_t);

Ranking::Ranking(const TextPool& texts)
    : texts_(texts), ends_(std::size_t{texts.size()} + 1), entries_(texts.size()) {
  for (std::uint32_t code = 0; code < texts.size(); ++code) {
    appendSortKey(texts[code], keys_);
    ends_[code + 1] = keys_.size();
    entries_[code].code = code;
  }
}

std::uint64_t Ranking::part(std::uint32_t code, std::size_t depth) const {
  const std::string_view rest = key(code).substr(std::min(depth, key(code).size()));
  std::uint64_t bytes = 0;
  for (std::size_t i = 0; i < kPart; ++i) {
    bytes = (bytes << 8) | (i < rest.size() ? static_cast<unsigned char>(rest[i]) : 0u);
  }
  return bytes;
}

// Texts with equal keys (two sigmas, say) still have an order, so that the same rows always sort alike.
bool Ranking::less(std::uint32_t a, std::uint32_t b) const {
  const int difference = key(a).compare(key(b));
  return difference != 0 ? difference < 0 : texts_[a] < texts_[b];
}

// Long texts often begin alike: eight bytes at a time are compared as numbers, the next eight only within
// runs of equal ones.
void Ranking::sort() {
  std::vector<Run> runs{{0, entries_.size(), 0}};
  while (!runs.empty()) {
    const Run run = runs.back();
    runs.pop_back();
    const auto begin = entries_.begin() + static_cast<std::ptrdiff_t>(run.begin);
    const auto end = entries_.begin() + static_cast<std::ptrdiff_t>(run.end);
    if (isDone(run)) {
      std::sort(begin, end, [&](const Entry& a, const Entry& b) { return less(a.code, b.code); });
      continue;
    }
    for (auto entry = begin; entry != end; ++entry) entry->part = part(entry->code, run.depth);
    std::sort(begin, end, [](const Entry& a, const Entry& b) { return a.part < b.part; });
    for (std::size_t first = run.begin, next = first; first < run.end; first = next) {
      while (next < run.end && entries_[next].part == entries_[first].part) ++next;
      if (next - first > 1) runs.push_back({first, next, run.depth + kPart});
    }
  }
}

// Whether a run is better sorted as it is: it is short, or its keys end here.
bool Ranking::isDone(const Run& run) const {
  if (run.end - run.begin <= kFewEntries) return true;
  for (std::size_t i = run.begin; i < run.end; ++i) {
    if (key(entries_[i].code).size() > run.depth) return false;
  }
  return true;
}

std::vector<std::uint32_t> Ranking::ranks() {
  sort();
  std::vector<std::uint32_t> ranks(entries_.size());
  std::uint32_t rank = 0;
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    if (i > 0 && texts_[entries_[i - 1].code] != texts_[entries_[i].code]) ++rank;
    ranks[entries_[i].code] = rank;
  }
  return ranks;
}

}  // namespace

void appendSortKey(std::string_view text, std::string& keys) {
  Levels levels(keys);
  for (;;) {
    text.remove_prefix(levels.addAscii(text));
    if (text.empty()) break;
    addCharacter(takeCharacter(text), levels);
  }
  keys += '\0';
  keys += levels.accents;
  keys += '\0';
  keys += levels.capitals;
}

void appendFoldedText(std::string_view text, std::string& folded) {
  const std::size_t before = folded.size();
  folded.resize(before + kMostFolded * text.size());
  char* out = folded.data() + before;
  for (;;) {
    std::size_t plain = 0;
    for (; plain < text.size(); ++plain) {
      const char c = text[plain];
      if (isAscii(c)) {
        *out++ = weightOf(c);
      } else if (const char weight = plain + 1 < text.size() ? greekWeight(c, text[plain + 1]) : '\0') {
        *out++ = weight;
        ++plain;
      } else {
        break;
      }
    }
    text.remove_prefix(plain);
    if (text.empty()) break;
    const char32_t c = takeCharacter(text);
    if (isCombining(c)) continue;
    if (const Letter letter = letterOf(c); letter.weight != 0) {
      *out++ = static_cast<char>(letter.weight);
    } else if (const char* parts = expansionOf(c)) {
      for (; *parts; ++parts) *out++ = weightOf(*parts);
    } else {
      out = putOther(c, out);
    }
  }
  folded.resize(static_cast<std::size_t>(out - folded.data()));
}

char asciiWeight(char character) noexcept { return weightOf(character); }

bool hasAsciiLetter(char weight) noexcept {
  return isAscii(weight) && weight != kOtherMark && weight < static_cast<char>(kGreekWeight);
}

std::vector<std::uint32_t> textRanks(const TextPool& texts) { return Ranking(texts).ranks(); }

}  // namespace vmgv

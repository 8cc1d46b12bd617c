#include "adapters/grid/collation.h"

#include <algorithm>
#include <array>

#include "adapters/grid/fold_table.h"
#include "adapters/grid/utf8.h"

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

struct Expansion {
  char32_t character;
  const char* letters;
};
constexpr Expansion kExpansions[] = {{0xC6, "AE"},  {0xE6, "ae"},  {0xDF, "ss"}, {0x1E9E, "SS"},
                                     {0x152, "OE"}, {0x153, "oe"}, {0xDE, "TH"}, {0xFE, "th"},
                                     {0x132, "IJ"}, {0x133, "ij"}};
constexpr std::uint8_t kExpanded = 0xFE;  // an accent: "ae" comes before its ligature
constexpr std::uint8_t kSeveral = 0xFF;

bool isMark(char32_t c) { return c < 0xC0 || (c >= 0x2000 && c < 0x2C00) || (c >= 0x3000 && c < 0x3040); }

// The three levels of one key while it is made.
struct Levels {
  std::string& primary;
  std::string accents, capitals;

  void add(Letter letter) {
    primary += static_cast<char>(letter.weight);
    accents += static_cast<char>(letter.accent);
    capitals += static_cast<char>(letter.capital);
  }
  void addOther(char32_t c) {
    primary += isMark(c) ? kOtherMark : kOtherLetter;
    for (int shift = 16; shift >= 0; shift -= 8) primary += static_cast<char>(c >> shift);
    accents += '\0';
    capitals += '\0';
  }
  void addAccent(std::uint8_t accent) {
    if (accents.empty()) return;
    accents.back() = static_cast<char>(accents.back() == '\0' ? accent : kSeveral);
  }
};

void addCharacter(char32_t c, Levels& levels) {
  if (c >= 0x300 && c < 0x370) return levels.addAccent(static_cast<std::uint8_t>(c - 0x300 + 1));
  const Letter letter = letterOf(c);
  if (letter.weight != 0) return levels.add(letter);
  for (const Expansion& expansion : kExpansions) {
    if (expansion.character != c) continue;
    for (const char* part = expansion.letters; *part; ++part) {
      Letter plain = kAscii[static_cast<std::size_t>(*part)];
      plain.accent = kExpanded;
      levels.add(plain);
    }
    return;
  }
  levels.addOther(c);
}

void appendLevel(std::string& keys, const std::string& level) {
  const auto last = level.find_last_not_of('\0');
  keys += '\0';
  if (last != level.npos) keys.append(level, 0, last + 1);
}

struct Candidate {
  std::uint64_t prefix;  // of the key, most significant byte first
  std::uint32_t code;
};

std::uint64_t prefixOf(std::string_view key) {
  std::uint64_t prefix = 0;
  for (std::size_t i = 0; i < 8; ++i) {
    prefix = (prefix << 8) | (i < key.size() ? static_cast<unsigned char>(key[i]) : 0u);
  }
  return prefix;
}

}  // namespace

void appendSortKey(std::string_view text, std::string& keys) {
  thread_local std::string accents, capitals;
  Levels levels{keys, std::move(accents), std::move(capitals)};
  levels.accents.clear();
  levels.capitals.clear();
  while (!text.empty()) {
    const auto byte = static_cast<unsigned char>(text[0]);
    if (byte < 128) {
      levels.add(kAscii[byte]);
      text.remove_prefix(1);
    } else {
      addCharacter(takeCharacter(text), levels);
    }
  }
  appendLevel(keys, levels.accents);
  appendLevel(keys, levels.capitals);
  accents = std::move(levels.accents);
  capitals = std::move(levels.capitals);
}

std::vector<std::uint32_t> textRanks(const TextPool& texts) {
  std::string keys;
  std::vector<std::size_t> ends(std::size_t{texts.size()} + 1);
  std::vector<Candidate> order(texts.size());
  for (std::uint32_t code = 0; code < texts.size(); ++code) {
    appendSortKey(texts[code], keys);
    ends[code + 1] = keys.size();
  }
  const auto key = [&](std::uint32_t code) {
    return std::string_view(keys).substr(ends[code], ends[code + 1] - ends[code]);
  };
  for (std::uint32_t code = 0; code < texts.size(); ++code) order[code] = {prefixOf(key(code)), code};
  // Texts with equal keys (two sigmas, say) still have an order, so that the same rows always sort alike.
  std::sort(order.begin(), order.end(), [&](const Candidate& a, const Candidate& b) {
    if (a.prefix != b.prefix) return a.prefix < b.prefix;
    const int difference = key(a.code).compare(key(b.code));
    return difference != 0 ? difference < 0 : texts[a.code] < texts[b.code];
  });
  std::vector<std::uint32_t> ranks(texts.size());
  std::uint32_t rank = 0;
  for (std::size_t i = 0; i < order.size(); ++i) {
    if (i > 0 && texts[order[i - 1].code] != texts[order[i].code]) ++rank;
    ranks[order[i].code] = rank;
  }
  return ranks;
}

}  // namespace vmgv

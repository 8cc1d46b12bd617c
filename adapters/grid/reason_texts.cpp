#include "adapters/grid/reason_texts.h"

#include <algorithm>

#include "support/strings/string_service.h"

namespace vmgv {
namespace {

constexpr std::size_t kNamed = 10;  // conditions of a row; more are counted

const char* inLanguage(const char* english, const char* greek) {
  const LanguageId language = processStringService().Language();
  return language == kGreek || language == kNoLanguage ? greek : english;
}

const char* nameOf(StyleAttribute attribute) {
  switch (attribute) {
    case StyleAttribute::BackColor: return inLanguage("Background colour", "Χρώμα φόντου");
    case StyleAttribute::ForeColor: return inLanguage("Text colour", "Χρώμα κειμένου");
    case StyleAttribute::FontName: return inLanguage("Font", "Γραμματοσειρά");
    case StyleAttribute::FontSize: return inLanguage("Font size", "Μέγεθος γραμμάτων");
    case StyleAttribute::FontBold: return inLanguage("Bold", "Έντονα");
    case StyleAttribute::FontItalic: return inLanguage("Italics", "Πλάγια");
    case StyleAttribute::FontUnderline: return inLanguage("Underline", "Υπογράμμιση");
    case StyleAttribute::FontStrikethru: return inLanguage("Strikethrough", "Διακριτή διαγραφή");
  }
  return "";
}

}  // namespace

std::string namesOf(const std::vector<SharedCondition>& conditions) {
  const std::size_t named = std::min(kNamed, conditions.size());
  std::string names;
  for (std::size_t i = 0; i < named; ++i) names += (i > 0 ? ", " : "") + conditions[i]->name;
  if (const std::size_t more = conditions.size() - named; more > 0)
    names += ", " + std::to_string(more) + inLanguage(" more", " ακόμη");
  return names;
}

std::vector<ReasonLine> reasonLines(const RowReasons& reasons) {
  if (reasons.matching.empty()) return {};
  std::vector<ReasonLine> lines{
      {inLanguage("Conditions of this row", "Συνθήκες της γραμμής"), namesOf(reasons.matching)}};
  for (std::size_t i = 0; i < kStyleAttributes; ++i) {
    if (const auto winner = reasons.winner[i])
      lines.push_back({nameOf(static_cast<StyleAttribute>(i)), reasons.matching[*winner]->name});
  }
  return lines;
}

std::string noReasonText() {
  return inLanguage("No condition holds for this row.", "Καμία συνθήκη δεν ισχύει για τη γραμμή.");
}

}  // namespace vmgv

#include "frontends/qt/grid_texts.h"

#include <QStringList>
#include <algorithm>

#include "frontends/qt/box_texts.h"
#include "frontends/qt/units.h"

namespace vmgv::gridtexts {
namespace {

QString inLanguage(const char* english, const char* greek) {
  return QString::fromUtf8(speaksGreek() ? greek : english);
}

constexpr std::size_t kNamed = 10;  // conditions of a row; more are counted

QString nameOf(const SharedCondition& condition) { return qt(condition->name); }

QString names(const std::vector<SharedCondition>& conditions) {
  QStringList names;
  for (std::size_t i = 0; i < std::min(kNamed, conditions.size()); ++i) names += nameOf(conditions[i]);
  const auto more = static_cast<qulonglong>(conditions.size() - static_cast<std::size_t>(names.size()));
  if (more > 0) names += inLanguage("%1 more", "%1 ακόμη").arg(more);
  return names.join(QStringLiteral(", "));
}

QString attribute(StyleAttribute attribute) {
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
  return {};
}

}  // namespace

QString groupBox() { return inLanguage("Group by", "Ομαδοποίηση κατά"); }

QString groupedBy(const QString& caption, bool ascending) {
  return (ascending ? inLanguage("Group by %1, ascending", "Ομαδοποίηση κατά %1, αύξουσα")
                    : inLanguage("Group by %1, descending", "Ομαδοποίηση κατά %1, φθίνουσα"))
      .arg(caption);
}

QString header(const QString& text, bool expanded) {
  return (expanded ? inLanguage("%1, expanded", "%1, ανοιχτή") : inLanguage("%1, collapsed", "%1, κλειστή"))
      .arg(text);
}

QString sum(const QString& caption, const QString& value) {
  return inLanguage("%1: total %2", "%1: σύνολο %2").arg(caption, value);
}

QString count(const QString& caption, const QString& value) {
  return inLanguage("%1: count %2", "%1: πλήθος %2").arg(caption, value);
}

QString marked(const QString& text, const RowReasons& reasons) {
  if (reasons.matching.empty()) return text;
  const auto pattern = reasons.matching.size() == 1 ? inLanguage("condition %1", "συνθήκη %1")
                                                    : inLanguage("conditions %1", "συνθήκες %1");
  const QString conditions = pattern.arg(names(reasons.matching));
  return text.isEmpty() ? conditions : text + QStringLiteral(", ") + conditions;
}

QString reasons(const RowReasons& reasons) {
  QString text = QStringLiteral("<b>%1</b> %2")
                     .arg(inLanguage("Conditions of this row:", "Συνθήκες της γραμμής:"),
                          names(reasons.matching).toHtmlEscaped());
  for (std::size_t i = 0; i < kStyleAttributes; ++i) {
    if (!reasons.winner[i]) continue;
    text += QStringLiteral("<br>%1: %2")
                .arg(attribute(static_cast<StyleAttribute>(i)),
                     nameOf(reasons.matching[*reasons.winner[i]]).toHtmlEscaped());
  }
  return text;
}

QString noReasons() {
  return inLanguage("No condition holds for this row.", "Καμία συνθήκη δεν ισχύει για τη γραμμή.");
}

}  // namespace vmgv::gridtexts

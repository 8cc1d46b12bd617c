#include "frontends/qt/grid_texts.h"

#include "adapters/grid/reason_texts.h"
#include "frontends/qt/box_texts.h"
#include "frontends/qt/units.h"

namespace vmgv::gridtexts {
namespace {

QString inLanguage(const char* english, const char* greek) {
  return QString::fromUtf8(speaksGreek() ? greek : english);
}

}  // namespace

QString groupBox() { return inLanguage("Group by", "Ομαδοποίηση κατά"); }

QString groupedBy(const QString& caption, bool ascending) {
  return (ascending ? inLanguage("Group by %1, ascending", "Ομαδοποίηση κατά %1, αύξουσα")
                    : inLanguage("Group by %1, descending", "Ομαδοποίηση κατά %1, φθίνουσα"))
      .arg(caption);
}

QString sorted(const QString& caption, bool ascending) {
  return (ascending ? inLanguage("%1, sorted ascending", "%1, ταξινόμηση αύξουσα")
                    : inLanguage("%1, sorted descending", "%1, ταξινόμηση φθίνουσα"))
      .arg(caption);
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
  const QString conditions = pattern.arg(qt(namesOf(reasons.matching)));
  return text.isEmpty() ? conditions : text + QStringLiteral(", ") + conditions;
}

QString reasons(const RowReasons& reasons) {
  QString text;
  for (const ReasonLine& line : reasonLines(reasons)) {
    const auto pattern = text.isEmpty() ? QStringLiteral("<b>%1:</b> %2") : QStringLiteral("<br>%1: %2");
    text += pattern.arg(qt(line.label), qt(line.text).toHtmlEscaped());
  }
  return text;
}

QString noReasons() { return qt(noReasonText()); }

}  // namespace vmgv::gridtexts

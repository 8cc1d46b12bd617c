#include "frontends/qt/grid_texts.h"

#include "frontends/qt/box_texts.h"

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

}  // namespace vmgv::gridtexts

// What assistive technology says of the grid's own parts.
#pragma once

#include <QString>

namespace vmgv::gridtexts {

QString groupBox();
QString groupedBy(const QString& caption, bool ascending);
QString header(const QString& text, bool expanded);
QString sum(const QString& caption, const QString& value);
QString count(const QString& caption, const QString& value);

}  // namespace vmgv::gridtexts

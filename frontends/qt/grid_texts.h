// What the grid says of its own parts: to assistive technology, and of why a row looks as it does.
#pragma once

#include <QString>

#include "adapters/grid/row_styles.h"

namespace vmgv::gridtexts {

QString groupBox();
QString groupedBy(const QString& caption, bool ascending);
QString sorted(const QString& caption, bool ascending);
QString sum(const QString& caption, const QString& value);
QString count(const QString& caption, const QString& value);
// A cell's text with the conditions that match its row, so that colour is not the only sign of them.
QString marked(const QString& text, const RowReasons& reasons);
// Rich text: the conditions, and for each attribute the one that it is from; "" where no condition holds.
QString reasons(const RowReasons& reasons);
QString noReasons();

}  // namespace vmgv::gridtexts

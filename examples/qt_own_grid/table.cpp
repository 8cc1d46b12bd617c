#include "table.h"

#include <QDateTime>

void Table::setRedraw(bool redraw) {
  redraw_ = redraw;
  if (redraw && stale_) arrange();
  view().setUpdatesEnabled(redraw);
}

void Table::arrange() {
  stale_ = !redraw_;
  if (redraw_) rows().arrange();
}

int placeOf(const vmgv::Value& number, int count) {
  const int wanted = vmgv::toLong(number);
  if (wanted < 1 || wanted > count) throw vmgv::Error(vmgv::ErrorNumber::SubscriptOutOfRange);
  return wanted - 1;
}

vmgv::Value valueOf(const QVariant& cell) {
  if (cell.isNull()) return vmgv::Null{};
  switch (cell.typeId()) {
    case QMetaType::Bool: return cell.toBool();
    case QMetaType::Int: return cell.toInt();
    case QMetaType::LongLong:
    case QMetaType::Double: return cell.toDouble();
    case QMetaType::QDate:
    case QMetaType::QDateTime: {  // days since the end of 1899; the fraction is the time of day
      const QDateTime moment = cell.toDateTime();
      constexpr double kMillisecondsPerDay = 86'400'000;
      const auto days = static_cast<double>(QDate(1899, 12, 30).daysTo(moment.date()));
      return vmgv::Date{days + moment.time().msecsSinceStartOfDay() / kMillisecondsPerDay};
    }
    default: return cell.toString().toStdString();
  }
}

int colourNumber(const QColor& colour) { return colour.red() | colour.green() << 8 | colour.blue() << 16; }

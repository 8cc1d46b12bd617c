#include "frontends/qt/item_model_source.h"

#include <QDateTime>
#include <QSet>
#include <limits>

#include "frontends/qt/units.h"
#include "support/automation/date.h"

namespace vmgv {
namespace {

constexpr int kFirstYear = 100, kLastYear = 9999;  // that automation dates reach
constexpr double kMillisecondsPerDay = 86'400'000;

std::optional<Date> automationDate(const QDateTime& moment) {
  const QDate day = moment.date();
  const QTime time = moment.time();
  if (day.year() < kFirstYear || day.year() > kLastYear) return {};
  Date date = dateFromCivil({day.year(), day.month(), day.day(), time.hour(), time.minute(), time.second()});
  // Before the calendar's origin the fraction still counts forward in the day.
  const double fraction = time.msec() / kMillisecondsPerDay;
  date.days += date.days < 0 ? -fraction : fraction;
  return date;
}

}  // namespace

std::string ItemModelSource::name() const {
  const QString name = model_.objectName();
  return name.isEmpty() ? model_.metaObject()->className() : utf8(name);
}

// Headers need not differ; fields must.
std::vector<ColumnSpec> ItemModelSource::columns() {
  std::vector<ColumnSpec> specs;
  QSet<QString> taken;
  for (int column = 0; column < model_.columnCount(); ++column) {
    const QString caption = model_.headerData(column, Qt::Horizontal).toString();
    QString field = caption;
    for (int copy = 2; taken.contains(field); ++copy) field = QStringLiteral("%1 %2").arg(caption).arg(copy);
    taken.insert(field);
    specs.push_back({utf8(field), utf8(caption)});
  }
  return specs;
}

void ItemModelSource::read(RowSink& rows, Problems& problems) {
  fetchAll();
  const int columns = model_.columnCount();
  for (int row = 0, end = model_.rowCount(); row < end; ++row) {
    for (int column = 0; column < columns; ++column) {
      put(model_.index(row, column).data(Qt::EditRole), row, column, rows, problems);
    }
    rows.endRow();
  }
}

// A model that has more to fetch but never gives it must not hold us up.
void ItemModelSource::fetchAll() {
  for (int before = -1; model_.canFetchMore({}) && model_.rowCount() > before;) {
    before = model_.rowCount();
    model_.fetchMore({});
  }
}

void ItemModelSource::put(const QVariant& value, int row, int column, RowSink& rows,
                          Problems& problems) const {
  const auto refuse = [&](const QString& what) {
    problems.add(name() + ":" + std::to_string(row + 1),
                 "column " + std::to_string(column + 1) + ": " + utf8(what) + " is left empty");
    rows.null();
  };
  if (value.isNull()) return rows.null();
  switch (value.typeId()) {
    case QMetaType::Bool: return rows.boolean(value.toBool());
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::LongLong: return rows.whole(value.toLongLong());
    case QMetaType::ULong:
    case QMetaType::ULongLong: {
      const qulonglong number = value.toULongLong();
      constexpr qulonglong kLargest = std::numeric_limits<std::int64_t>::max();
      return number <= kLargest ? rows.whole(static_cast<std::int64_t>(number))
                                : rows.text(std::to_string(number));
    }
    case QMetaType::Float:
    case QMetaType::Double: return rows.number(value.toDouble());
    case QMetaType::QDate:
    case QMetaType::QDateTime: {
      if (const std::optional<Date> date = automationDate(value.toDateTime())) return rows.date(*date);
      return refuse(QStringLiteral("the date ") + value.toString());
    }
    default: break;
  }
  if (!value.canConvert<QString>()) return refuse(QStringLiteral("a ") + QLatin1String(value.typeName()));
  rows.text(utf8(value.toString()));
}

}  // namespace vmgv

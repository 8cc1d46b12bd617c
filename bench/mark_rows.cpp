// mark_rows ROWS.csv PAGES: what format conditions cost. Paints pages of the Qt grid view without a screen,
// in turns without conditions and with 50 of them, a few of which match a row; then finds all records that
// match one condition, beside asking a QStandardItemModel of the same values item by item.
#include <QApplication>
#include <QCollator>
#include <QDateTime>
#include <QScrollBar>
#include <QStandardItemModel>
#include <cmath>
#include <cstdlib>
#include <string>

#include "adapters/grid/csv_source.h"
#include "bench/measure.h"
#include "frontends/qt/grid_view.h"

namespace {

using namespace vmgv;

constexpr int kConditions = 50;
constexpr int kTurns = 10;

FormatCondition condition(const GridEngine& engine, const char* field, int op, Value value1,
                          Value value2 = {}) {
  static int number = 0;
  FormatCondition made;
  made.name = "Condition " + std::to_string(++number);
  made.colIndex = engine.columnIndex(field);
  made.op = static_cast<std::int16_t>(op);
  made.value1 = std::move(value1);
  made.value2 = std::move(value2);
  return made;
}

// Of every type and operator; each colour and font attribute comes from somewhere.
std::vector<FormatCondition> conditions(const GridEngine& engine) {
  std::vector<FormatCondition> all;
  for (int i = 0; static_cast<int>(all.size()) < kConditions; ++i) {
    all.push_back(condition(engine, "Amount", 6, i * 10.0, std::to_string(i * 10 + 15) + ",5"));
    all.push_back(condition(engine, "Category", i % 2 == 0 ? 0 : 8, "Motor group " + std::to_string(i)));
    all.push_back(condition(engine, "Place", 8, i % 2 == 0 ? "ναξοσ" : "ΣΈΡΡΕΣ"));
    all.push_back(condition(engine, "Stamp", 2, "2024-" + std::to_string(i % 12 + 1) + "-15 12:00"));
    all.push_back(condition(engine, "Active", 0, i % 2 == 0));
  }
  for (std::size_t i = 0; i < all.size(); ++i) {
    FormatStyle& style = all[i].style;
    if (i % 3 == 0) style.backColor = 0xC0FFC0 + static_cast<std::int32_t>(i);
    if (i % 3 == 1) style.foreColor = 0x400000 + static_cast<std::int32_t>(i);
    if (i % 5 == 0) style.fontItalic = true;
    if (i % 7 == 0) style.fontUnderline = true;
  }
  return all;
}

// Seconds a page.
double paint(GridView& view, int pages) {
  const double start = bench::cpuSeconds();
  for (int page = 0; page < pages; ++page) {
    view.verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
    view.viewport()->repaint();
  }
  return (bench::cpuSeconds() - start) / pages;
}

void paintPages(GridEngine& engine, GridView& view, int pages) {
  const auto all = conditions(engine);
  double plain = 0, marked = 0;
  for (int turn = 0; turn < kTurns; ++turn) {
    for (const bool with : {false, true}) {
      engine.setRedraw(false);
      while (!engine.conditions().empty()) engine.removeCondition((*engine.conditions().front())->name);
      if (with) {
        for (const FormatCondition& one : all) engine.addCondition(one);
      }
      engine.setRedraw(true);
      view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum() / kTurns * turn);
      paint(view, 2);
      (with ? marked : plain) += paint(view, pages / kTurns) / kTurns;
    }
  }
  bench::report("page_ms", plain * 1000);
  bench::report("page_marked_ms", marked * 1000);
  bench::report("page_ratio", marked / plain);
}

// A column as Qt applications mostly hold one.
void fill(QStandardItemModel& model, const GridEngine& engine, std::int32_t column) {
  for (std::uint32_t record = 0; record < engine.records(); ++record) {
    const Value value = engine.recordValue(record, column);
    auto* item = new QStandardItem;
    if (const auto* text = value.as<std::string>())
      item->setData(QString::fromStdString(*text), Qt::EditRole);
    if (const auto* number = value.as<double>()) item->setData(*number, Qt::EditRole);
    if (const auto* date = value.as<Date>()) {
      const QDateTime dayZero(QDate(1899, 12, 30), QTime(0, 0), Qt::UTC);
      item->setData(dayZero.addSecs(std::llround(date->days * 86400)), Qt::EditRole);
    }
    model.setItem(static_cast<int>(record), item);
  }
}

template <class Matches>
void evaluate(GridEngine& engine, const char* name, const FormatCondition& one, Matches matches) {
  while (!engine.conditions().empty()) engine.removeCondition((*engine.conditions().front())->name);
  engine.addCondition(one);
  double start = bench::cpuSeconds();
  const std::size_t found = engine.matchingRecords(0).count();
  const double ours = bench::cpuSeconds() - start;

  QStandardItemModel items(static_cast<int>(engine.records()), 1);
  fill(items, engine, one.colIndex);
  const QAbstractItemModel& model = items;
  std::size_t asked = 0;
  start = bench::cpuSeconds();
  for (int row = 0; row < model.rowCount(); ++row) {
    const QVariant value = model.data(model.index(row, 0), Qt::EditRole);
    if (value.isValid() && matches(value)) ++asked;
  }
  const double theirs = bench::cpuSeconds() - start;
  const std::string prefix = name;
  bench::report((prefix + "_found").c_str(), static_cast<double>(found));
  bench::report((prefix + "_asked").c_str(), static_cast<double>(asked));
  bench::report((prefix + "_s").c_str(), ours);
  bench::report((prefix + "_variant_s").c_str(), theirs);
  bench::report((prefix + "_ratio").c_str(), theirs / ours);
}

void run(const char* path, int pages) {
  const auto engine = std::make_shared<GridEngine>();
  CsvSource source(path);
  engine->load(source);
  {
    GridView view;
    view.setEngine(engine);
    view.resize(1200, 800);
    view.show();
    QApplication::processEvents();
    paintPages(*engine, view, pages);
  }
  QCollator collator(QLocale(QLocale::Greek));
  collator.setCaseSensitivity(Qt::CaseInsensitive);
  evaluate(*engine, "number", condition(*engine, "Amount", 2, "500,5"),
           [](const QVariant& value) { return value.toDouble() > 500.5; });
  const QDateTime noon(QDate(2024, 3, 5), QTime(12, 0), Qt::UTC);
  evaluate(*engine, "stamp", condition(*engine, "Stamp", 3, "2024-03-05 12:00"),
           [&](const QVariant& value) { return value.toDateTime() < noon; });
  const QString category = QStringLiteral("motor group 38");
  evaluate(*engine, "category", condition(*engine, "Category", 0, "motor group 38"),
           [&](const QVariant& value) { return collator.compare(value.toString(), category) == 0; });
  const QString place = QStringLiteral("Νάξος Σέρρες 49");
  evaluate(*engine, "place", condition(*engine, "Place", 2, "Νάξος Σέρρες 49"),
           [&](const QVariant& value) { return collator.compare(value.toString(), place) > 0; });
  const QString part = QStringLiteral("days net");
  evaluate(*engine, "notes", condition(*engine, "Notes", 8, "days net"),
           [&](const QVariant& value) { return value.toString().contains(part, Qt::CaseInsensitive); });
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 3) {
    std::fprintf(stderr, "usage: mark_rows ROWS.csv PAGES\n");
    return 2;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(count, arguments);
  QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
  try {
    run(arguments[1], std::atoi(arguments[2]));
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "mark_rows: %s\n", error.what());
    return 1;
  }
}

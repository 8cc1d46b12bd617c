// Any Qt model as rows of the grid: types, headers, models that fetch piece by piece.
#include "frontends/qt/item_model_source.h"

#include <gtest/gtest.h>

#include <QDateTime>
#include <QStandardItemModel>
#include <QStringListModel>

#include "adapters/grid/engine.h"
#include "support/automation/date.h"

namespace vmgv {
namespace {

// A model that gives its rows in pieces, and promises more than it has.
struct FetchingModel final : QStringListModel {
  bool canFetchMore(const QModelIndex&) const override { return true; }
  void fetchMore(const QModelIndex&) override {
    if (rowCount() < 1000) insertRows(rowCount(), 100);
  }
};

TEST(ItemModelSource, ValuesKeepTheirTypesAndWhatIsNoneIsNamed) {
  const struct {
    QVariant given;
    Value expected;
    std::size_t problems = 0;
  } cases[] = {
      {QVariant(QMetaType(QMetaType::QString)), Null{}},
      {QVariant("007"), "007"},
      {QVariant(-7), std::int32_t{-7}},
      {QVariant(qulonglong{18'446'744'073'709'551'615u}), "18446744073709551615"},
      {QVariant(2.5f), 2.5},
      {QVariant(QDate(2024, 2, 29)), dateFromCivil({2024, 2, 29, 0, 0, 0})},
      {QVariant(QDateTime(QDate(1899, 12, 29), QTime(6, 0))), Date{-1.25}},
      {QVariant(QDateTime(QDate(1899, 12, 31), QTime(0, 0, 0, 864))), Date{1.00001}},
      {QVariant(QDate(12'000, 1, 1)), Null{}, 1},
      {QVariant(QPoint(1, 2)), Null{}, 1},
  };
  for (const auto& each : cases) {
    QStandardItemModel model(1, 1);
    model.setData(model.index(0, 0), each.given, Qt::EditRole);
    ItemModelSource source(model);
    GridEngine engine;
    const Problems problems = engine.load(source);
    EXPECT_EQ(engine.value(1, 1), each.expected) << each.given.typeName();
    ASSERT_EQ(problems.messages().size(), each.problems) << each.given.typeName();
    for (const auto& message : problems.messages()) {
      EXPECT_TRUE(message.starts_with("QStandardItemModel:1: column 1: ")) << message;
    }
  }
}

TEST(ItemModelSource, EqualHeadersBecomeDifferentFields) {
  QStandardItemModel model;
  model.setHorizontalHeaderLabels({"name", "name", "name 2", "name"});
  std::string fields;
  for (const ColumnSpec& spec : ItemModelSource(model).columns()) fields += spec.field + ", ";
  EXPECT_EQ(fields, "name, name 2, name 2 2, name 3, ");
}

TEST(ItemModelSource, RowsStillToBeFetchedCount) {
  FetchingModel model;
  ItemModelSource source(model);
  GridEngine engine;
  engine.load(source);
  EXPECT_EQ(engine.rowCount(), 1000);
}

}  // namespace
}  // namespace vmgv

// Any Qt model as rows of the grid: types, headers, models that fetch piece by piece.
#include "frontends/qt/item_model_source.h"

#include <gtest/gtest.h>

#include <QDateTime>
#include <QStandardItemModel>

#include "adapters/grid/engine.h"
#include "support/automation/date.h"

namespace vmgv {
namespace {

// A model of one column that gives its rows in pieces, or only promises them.
class FetchingModel : public QAbstractListModel {
 public:
  FetchingModel(int rows, int piece) : rows_(rows), piece_(piece) {}
  int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : fetched_; }
  QVariant data(const QModelIndex& index, int role) const override {
    return role == Qt::EditRole ? QVariant(index.row()) : QVariant();
  }
  bool canFetchMore(const QModelIndex&) const override { return fetched_ < rows_; }
  void fetchMore(const QModelIndex&) override {
    if (piece_ == 0) return;
    beginInsertRows({}, fetched_, fetched_ + piece_ - 1);
    fetched_ += piece_;
    endInsertRows();
  }

 private:
  int rows_, piece_, fetched_ = 0;
};

Value loaded(const QVariant& value, Problems& problems) {
  QStandardItemModel model(1, 1);
  model.setData(model.index(0, 0), value, Qt::EditRole);
  ItemModelSource source(model);
  GridEngine engine;
  problems = engine.load(source);
  return engine.value(1, 1);
}

TEST(ItemModelSource, ValuesKeepTheirTypes) {
  const struct {
    QVariant given;
    Value expected;
  } cases[] = {
      {QVariant(), Null{}},
      {QVariant(QMetaType(QMetaType::QString)), Null{}},
      {QVariant(QString()), ""},
      {QVariant(QString("007")), "007"},
      {QVariant(QString("Ω")), "Ω"},
      {QVariant(QByteArray("bytes")), "bytes"},
      {QVariant(true), true},
      {QVariant(-7), std::int32_t{-7}},
      {QVariant(short{3}), std::int32_t{3}},
      {QVariant(qulonglong{18'446'744'073'709'551'615u}), "18446744073709551615"},
      {QVariant(2.5f), 2.5},
      {QVariant(QDate(2024, 2, 29)), dateFromCivil({2024, 2, 29, 0, 0, 0})},
      {QVariant(QDateTime(QDate(1990, 1, 8), QTime(6, 30, 15))), dateFromCivil({1990, 1, 8, 6, 30, 15})},
      {QVariant(QDateTime(QDate(1899, 12, 29), QTime(6, 0))), Date{-1.25}},
      {QVariant(QDateTime(QDate(1899, 12, 31), QTime(0, 0, 0, 864))), Date{1.00001}},
  };
  for (const auto& each : cases) {
    Problems problems;
    const Value value = loaded(each.given, problems);
    EXPECT_EQ(value, each.expected) << each.given.typeName() << " " << each.given.toString().toStdString();
    EXPECT_TRUE(problems.empty());
  }
}

TEST(ItemModelSource, WhatIsNoValueIsNamedAndLeftOut) {
  for (const QVariant& given : {QVariant(QDate(12'000, 1, 1)), QVariant(QPoint(1, 2))}) {
    Problems problems;
    EXPECT_TRUE(loaded(given, problems).isNull());
    ASSERT_EQ(problems.messages().size(), 1u);
    EXPECT_EQ(problems.messages()[0].find("QStandardItemModel:1: column 1: "), 0u) << problems.messages()[0];
  }
}

TEST(ItemModelSource, EqualHeadersBecomeDifferentFields) {
  QStandardItemModel model;
  model.setHorizontalHeaderLabels({"name", "name", "name 2", "name"});
  ItemModelSource source(model);
  std::vector<std::string> fields;
  for (const ColumnSpec& spec : source.columns()) fields.push_back(spec.field + "/" + spec.caption);
  EXPECT_EQ(fields, (std::vector<std::string>{"name/name", "name 2/name", "name 2 2/name 2", "name 3/name"}));
}

TEST(ItemModelSource, RowsStillToBeFetchedCount) {
  FetchingModel pieces(1000, 100), promises(1000, 0);
  for (const auto& [model, rows] : {std::pair<QAbstractItemModel*, int>{&pieces, 1000}, {&promises, 0}}) {
    ItemModelSource source(*model);
    GridEngine engine;
    engine.load(source);
    EXPECT_EQ(engine.rowCount(), rows);
  }
}

}  // namespace
}  // namespace vmgv

// The rows of a table as its user arranges them: in groups, sorted by several columns, coloured by rules.
//
// QSortFilterProxyModel sorts by one column; here lessThan() looks at one key after the other.
#pragma once

#include <QColor>
#include <QSortFilterProxyModel>
#include <optional>
#include <vector>

struct Key {
  int column = 0;  // of the model, from 0
  Qt::SortOrder order = Qt::AscendingOrder;
};

// What a rule changes about a row; what is not set stays as the table has it.
struct Look {
  std::optional<QColor> back, fore;
  std::optional<QString> family;
  std::optional<double> points;
  std::optional<bool> bold, italic, underline, strikeOut;
};

// Rows whose value in `column` compares with the operands as `op` says look so.
struct Rule {
  // In the order of the contract's numbers.
  enum Operator { Equal, Different, Greater, Less, NotLess, NotGreater, Between, Outside, Contains, Lacks };

  QString name;
  int column = 0;
  Operator op = Equal;
  QVariant value1, value2;  // as the user typed them
  Look look;
};

class ArrangedTable : public QSortFilterProxyModel {
 public:
  using QSortFilterProxyModel::QSortFilterProxyModel;

  // A table without headers of groups still shows them: their rows stand together.
  std::vector<Key> groups, keys;
  void arrange();  // after a change of groups or keys

  std::vector<Rule> rules;  // of two that match, the later one wins
  void repaint();           // after a change of the rules

  // A click on a header: what the user does without a dialog is there when he opens one.
  void sort(int column, Qt::SortOrder order) override;
  QVariant data(const QModelIndex& index, int role) const override;

 protected:
  bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;
};

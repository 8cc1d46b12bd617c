// The grid widget: it shows the engine's layout, asks for the visible cells only, and writes back the user's
// acts.
#include "frontends/qt/grid_view.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QAccessibleTableInterface>
#include <QApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <set>

#include "frontends/qt/gestures.h"
#include "frontends/qt/units.h"

namespace vmgv {
namespace {

class Numbers final : public RowSource {
 public:
  explicit Numbers(int rows) : rows_(rows) {}
  std::string name() const override { return "numbers"; }
  std::vector<ColumnSpec> columns() override {
    return {{"id", "No."}, {"name", "Name"}, {"parity", "Parity"}};
  }
  void read(RowSink& sink, Problems&) override {
    for (int i = 1; i <= rows_; ++i) {
      sink.whole(i);
      sink.text("name " + std::to_string(i));
      sink.text(i % 2 == 0 ? "even" : "odd");
      sink.endRow();
    }
  }

 private:
  int rows_;
};

class CountingDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    rows.insert(index.row());
    ++cells;
    QStyledItemDelegate::paint(painter, option, index);
  }
  mutable std::set<int> rows;
  mutable int cells = 0;
};

class GridViewTest : public testing::Test {
 protected:
  GridViewTest() {
    view.resize(500, 400);
    view.show();
  }
  void load(int rows) {
    auto engine = std::make_shared<GridEngine>();
    Numbers source(rows);
    engine->load(source);
    view.setEngine(engine);
  }
  GridEngine& engine() { return *view.engine(); }
  QString shown(int row, int visualColumn) const {
    const int section = view.horizontalHeader()->logicalIndex(visualColumn);
    return view.model()->index(row, section).data().toString();
  }
  std::vector<int> selectedRows() const {
    std::vector<int> rows;
    for (const QModelIndex& index : view.selectionModel()->selectedRows()) rows.push_back(index.row());
    std::sort(rows.begin(), rows.end());
    return rows;
  }

  GridView view;
};

TEST_F(GridViewTest, OnlyVisibleCellsArePainted) {
  load(1'000'000);
  CountingDelegate delegate;
  view.setItemDelegate(&delegate);
  view.grab();
  EXPECT_GT(delegate.cells, 20);
  EXPECT_LT(delegate.rows.size(), 30u);
  EXPECT_EQ(*delegate.rows.begin(), 0);
  delegate.rows.clear();
  view.scrollToBottom();
  view.grab();
  EXPECT_EQ(*delegate.rows.rbegin(), 999'999);
  EXPECT_LT(delegate.rows.size(), 30u);
  view.setItemDelegate(nullptr);
}

TEST_F(GridViewTest, ColumnsFollowTheEngine) {
  load(5);
  engine().setColPosition(3, 1);
  engine().setVisible(1, false);
  engine().setCaption(2, "Full name");
  EXPECT_EQ(shown(0, 0), "odd");
  EXPECT_TRUE(view.horizontalHeader()->isSectionHidden(0));
  EXPECT_FALSE(view.horizontalHeader()->isSectionHidden(1));
  EXPECT_EQ(view.model()->headerData(1, Qt::Horizontal).toString(), "Full name");
  engine().setVisible(1, true);
  engine().setColPosition(3, 3);
  EXPECT_EQ(shown(0, 0), "1");
  EXPECT_EQ(view.model()->index(0, 0).data(Qt::TextAlignmentRole).toInt() & Qt::AlignHorizontal_Mask,
            Qt::AlignRight);
}

TEST_F(GridViewTest, TheUsersColumnsReachTheEngine) {
  load(5);
  view.horizontalHeader()->moveSection(0, 2);  // as dragging does
  EXPECT_EQ(engine().column(1).colPosition, 3);
  EXPECT_EQ(engine().column(2).colPosition, 1);
  view.horizontalHeader()->resizeSection(1, 77);
  EXPECT_EQ(engine().column(2).width, 77);
}

TEST_F(GridViewTest, RowsFollowTheSortKeysAndRedraw) {
  load(100);
  engine().setRedraw(false);
  engine().addSortKey({3, kSortAscending});
  engine().addSortKey({1, kSortDescending});
  engine().select({1, 3});
  engine().setRedraw(true);
  EXPECT_EQ(shown(0, 0), "100");
  EXPECT_EQ(shown(0, 2), "even");
  EXPECT_EQ(shown(99, 0), "1");
  EXPECT_EQ(selectedRows(), (std::vector<int>{0, 2}));
}

TEST_F(GridViewTest, SelectionIsOneForViewAndEngine) {
  load(50);
  engine().select({2, 3, 7});
  EXPECT_EQ(selectedRows(), (std::vector<int>{1, 2, 6}));
  gestures::click(*view.viewport(), view.visualRect(view.model()->index(4, 1)).center());
  EXPECT_EQ(engine().selection(), (std::vector<std::int32_t>{5}));
  gestures::press(view, Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(engine().selection(), (std::vector<std::int32_t>{5, 6}));
  gestures::press(view, Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(engine().selection().size(), 50u);
  engine().setMultiSelect(false);
  gestures::press(view, Qt::Key_A, Qt::ControlModifier);
  gestures::click(*view.viewport(), view.visualRect(view.model()->index(0, 0)).center());
  EXPECT_EQ(engine().selection(), (std::vector<std::int32_t>{1}));
  // The selection stays with its record.
  engine().addSortKey({1, kSortDescending});
  EXPECT_EQ(selectedRows(), (std::vector<int>{49}));
}

TEST_F(GridViewTest, ColumnsFillTheViewWhereTheGridIsSetSo) {
  load(5);
  engine().changeSettings([](GridSettings& settings) { settings.columnAutoResize = true; });
  EXPECT_EQ(view.horizontalHeader()->length(), view.viewport()->width());
  view.resize(900, 400);
  EXPECT_EQ(view.horizontalHeader()->length(), view.viewport()->width());
  EXPECT_EQ(engine().column(1).width, 0) << "stretching is no width of the column's own";
  engine().changeSettings([](GridSettings& settings) { settings.columnAutoResize = false; });
  EXPECT_LT(view.horizontalHeader()->length(), view.viewport()->width());
}

TEST_F(GridViewTest, AlternatingRowsAreTheEnginesSetting) {
  load(3);
  const auto background = [&](int row) {
    return view.model()->index(row, 0).data(Qt::BackgroundRole).isValid();
  };
  EXPECT_FALSE(background(1));
  engine().changeSettings([](GridSettings& settings) { settings.useEvenOddColor = true; });
  EXPECT_FALSE(background(0));
  EXPECT_TRUE(background(1));
}

TEST_F(GridViewTest, AnyItemModelIsShownAndFollowed) {
  QStandardItemModel model(2, 2);
  model.setHorizontalHeaderLabels({"a", "b"});
  model.setData(model.index(0, 0), 17);
  view.setModel(&model);
  EXPECT_EQ(view.sourceModel(), &model);
  EXPECT_EQ(engine().rowCount(), 2);
  EXPECT_EQ(shown(0, 0), "17");
  model.setData(model.index(1, 1), 18);
  model.appendRow({new QStandardItem("x"), new QStandardItem("y")});
  QCoreApplication::processEvents();
  EXPECT_EQ(engine().rowCount(), 3);
  EXPECT_EQ(shown(1, 1), "18");
  view.setModel(nullptr);
  model.appendRow(new QStandardItem("z"));
  QCoreApplication::processEvents();
  EXPECT_EQ(engine().rowCount(), 0);
}

TEST_F(GridViewTest, AssistiveTechnologySeesATable) {
  load(4);
  QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&view);
  ASSERT_TRUE(accessible && accessible->tableInterface());
  EXPECT_EQ(accessible->tableInterface()->rowCount(), 4);
  EXPECT_EQ(accessible->tableInterface()->cellAt(2, 1)->text(QAccessible::Name), "name 3");
  EXPECT_EQ(accessible->tableInterface()->columnDescription(1), "Name");
}

TEST_F(GridViewTest, TabLeavesTheGrid) {
  load(4);
  EXPECT_FALSE(view.tabKeyNavigation());
}

}  // namespace
}  // namespace vmgv

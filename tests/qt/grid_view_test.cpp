// The grid widget: it shows the engine's layout, asks for the visible cells only, and writes back the user's
// acts.
#include "frontends/qt/grid_view.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QAccessibleTableInterface>
#include <QHeaderView>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <set>

#include "frontends/qt/gestures.h"

namespace vmgv {
namespace {

struct Numbers final : RowSource {
  std::string name() const override { return "numbers"; }
  std::vector<ColumnSpec> columns() override { return {{"id", "No."}, {"parity", "Parity"}}; }
  void read(RowSink& sink, Problems&) override {
    for (int i = 1; i <= count; ++i) {
      sink.whole(i);
      sink.text(i % 2 == 0 ? "even" : "odd");
      sink.endRow();
    }
  }
  int count = 0;
};

struct CountingDelegate final : QStyledItemDelegate {
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    rows.insert(index.row());
    QStyledItemDelegate::paint(painter, option, index);
  }
  mutable std::set<int> rows;
};

struct GridViewTest : testing::Test {
  void load(int rows) {
    view.resize(500, 400);
    view.show();
    auto engine = std::make_shared<GridEngine>();
    Numbers source;
    source.count = rows;
    engine->load(source);
    view.setEngine(engine);
  }
  GridEngine& engine() { return *view.engine(); }
  QString shown(int row, int visualColumn) const {
    const int section = view.horizontalHeader()->logicalIndex(visualColumn);
    return view.model()->index(row, section).data().toString();
  }

  GridView view;
};

TEST_F(GridViewTest, OnlyVisibleCellsArePainted) {
  load(1'000'000);
  CountingDelegate delegate;
  view.setItemDelegate(&delegate);
  view.grab();
  view.scrollToBottom();
  view.grab();
  EXPECT_EQ(*delegate.rows.rbegin(), 999'999);
  EXPECT_LT(delegate.rows.size(), 60u) << "two screenfuls";
}

TEST_F(GridViewTest, ColumnsFollowTheEngineAndBack) {
  load(5);
  engine().setColPosition(2, 1);
  engine().setVisible(1, false);
  engine().setCaption(2, "Kind");
  EXPECT_EQ(shown(0, 0), "odd");
  EXPECT_TRUE(view.horizontalHeader()->isSectionHidden(0));
  EXPECT_EQ(view.model()->headerData(1, Qt::Horizontal).toString(), "Kind");
  engine().setVisible(1, true);
  view.horizontalHeader()->moveSection(0, 1);  // as dragging does
  EXPECT_EQ(engine().column(1).colPosition, 1);
  view.horizontalHeader()->resizeSection(1, 77);
  EXPECT_EQ(engine().column(2).width, 77);
}

TEST_F(GridViewTest, RowsFollowTheSortKeysAndRedraw) {
  load(100);
  engine().setRedraw(false);
  engine().addSortKey({2, kSortAscending});
  engine().addSortKey({1, kSortDescending});
  engine().setRedraw(true);
  EXPECT_EQ(shown(0, 0), "100");
  EXPECT_EQ(shown(99, 0), "1");
}

TEST_F(GridViewTest, SelectionIsOneForViewAndEngine) {
  load(50);
  gestures::click(*view.viewport(), view.visualRect(view.model()->index(4, 1)).center());
  EXPECT_EQ(engine().selection(), (std::vector<std::int32_t>{5}));
  gestures::press(view, Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(engine().selection(), (std::vector<std::int32_t>{5, 6}));
  engine().setMultiSelect(false);
  gestures::click(*view.viewport(), view.visualRect(view.model()->index(0, 0)).center());
  EXPECT_EQ(engine().selection(), (std::vector<std::int32_t>{1}));
  engine().addSortKey({1, kSortDescending});
  EXPECT_TRUE(view.selectionModel()->isRowSelected(49)) << "the selection stays with its record";
}

TEST_F(GridViewTest, AnyItemModelIsShownAndFollowed) {
  QStandardItemModel model(2, 2);
  view.setModel(&model);
  model.setData(model.index(1, 1), 18);
  model.appendRow(new QStandardItem("x"));
  QCoreApplication::processEvents();
  EXPECT_EQ(engine().rowCount(), 3);
  EXPECT_EQ(shown(1, 1), "18");
  view.setModel(nullptr);
  model.appendRow(new QStandardItem("z"));
  QCoreApplication::processEvents();
  EXPECT_EQ(engine().rowCount(), 0);
}

TEST_F(GridViewTest, AssistiveTechnologySeesATableThatTabLeaves) {
  load(4);
  QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&view);
  ASSERT_TRUE(accessible && accessible->tableInterface());
  EXPECT_EQ(accessible->tableInterface()->cellAt(2, 1)->text(QAccessible::Name), "odd");
  EXPECT_EQ(accessible->tableInterface()->columnDescription(1), "Parity");
  EXPECT_FALSE(view.tabKeyNavigation()) << "Tab leaves the grid";
}

}  // namespace
}  // namespace vmgv

// Groups, previews and the group-by box under a user's mouse and keys.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QAccessibleTableInterface>
#include <QApplication>
#include <QHeaderView>
#include <QMouseEvent>
#include <QStandardItemModel>
#include <QToolButton>

#include "frontends/qt/gestures.h"
#include "frontends/qt/grid_view.h"
#include "frontends/qt/units.h"
#include "support/strings/string_service.h"

namespace vmgv {
namespace {

void mouse(QWidget& widget, QEvent::Type type, QPoint point, Qt::KeyboardModifiers modifiers = {}) {
  const bool up = type == QEvent::MouseButtonRelease;
  const bool move = type == QEvent::MouseMove;
  QMouseEvent event(type, point, widget.mapToGlobal(point), move ? Qt::NoButton : Qt::LeftButton,
                    up ? Qt::NoButton : Qt::LeftButton, modifiers);
  QCoreApplication::sendEvent(&widget, &event);
}

void click(QWidget& widget, QPoint point, Qt::KeyboardModifiers modifiers = {}) {
  mouse(widget, QEvent::MouseButtonPress, point, modifiers);
  mouse(widget, QEvent::MouseButtonRelease, point, modifiers);
}

void drag(QWidget& widget, QPoint from, QPoint to) {
  mouse(widget, QEvent::MouseButtonPress, from);
  for (int step = 1; step <= 8; ++step) mouse(widget, QEvent::MouseMove, from + (to - from) * step / 8);
  mouse(widget, QEvent::MouseButtonRelease, to);
}

struct GridGroupsTest : testing::Test {
  GridGroupsTest() {
    processStringService().setLanguage(kEnglish);
    model.setHorizontalHeaderLabels({"City", "Kind", "Price", "Note"});
    for (int i = 0; i < 40; ++i) {
      QList<QStandardItem*> row;
      for (const QVariant& value :
           {QVariant(i % 2 == 0 ? "Athens" : "Volos"), QVariant(i % 4 < 2 ? "lamp" : "desk"),
            QVariant(i * 1.5), QVariant(QStringLiteral("note %1\nsecond\nthird").arg(i))}) {
        row.append(new QStandardItem);
        row.back()->setData(value, Qt::EditRole);
      }
      model.appendRow(row);
    }
    view.setModel(&model);
    view.resize(640, 480);
    view.show();
    QApplication::setActiveWindow(&view);
    view.setFocus();
  }
  GridEngine& engine() { return *view.engine(); }
  QHeaderView& header() { return *view.horizontalHeader(); }
  QPoint headerPoint(int section) {
    return {header().sectionViewportPosition(section) + header().sectionSize(section) / 2,
            header().viewport()->height() / 2};
  }
  QList<QToolButton*> chips() {
    QList<QToolButton*> shown;
    for (auto* chip : header().findChildren<QToolButton*>()) {
      if (chip->isVisible()) shown.append(chip);
    }
    return shown;
  }
  void showBox() {
    engine().changeSettings([](GridSettings& settings) { settings.groupByBoxVisible = true; });
  }
  QPoint inRow(int row, int x) { return {x, view.rowViewportPosition(row) + 4}; }
  // "1+ 2-" groups, "3-" sort keys behind a bar.
  std::string keys() {
    std::string text;
    const auto add = [&](const std::vector<SortKey>& all) {
      for (const SortKey& key : all) text += std::to_string(key.colIndex) + (key.sortOrder > 0 ? "+" : "-");
    };
    add(engine().groups());
    text += '|';
    add(engine().sortKeys());
    return text;
  }
  std::string order() {
    std::string text;
    for (const std::int32_t column : engine().visibleColumns()) text += std::to_string(column);
    return text;
  }

  QStandardItemModel model;
  GridView view;
};

TEST_F(GridGroupsTest, MouseOpensAndClosesGroups) {
  engine().addGroup({1, 1});
  engine().addGroup({2, 1});
  ASSERT_EQ(view.model()->rowCount(), 46);
  click(*view.viewport(), inRow(0, 8));
  EXPECT_EQ(view.model()->rowCount(), 24) << "the mark of the outer group";
  click(*view.viewport(), inRow(2, 8));
  EXPECT_EQ(view.model()->rowCount(), 24) << "an inner group's mark stands further right";
  click(*view.viewport(), inRow(2, 8 + 18));
  EXPECT_EQ(view.model()->rowCount(), 14);
  gestures::doubleClick(*view.viewport(), inRow(0, 200));
  EXPECT_EQ(view.model()->rowCount(), 36);
  EXPECT_EQ(engine().selection(), std::vector<std::int32_t>{1}) << "the first click selected the header";
  EXPECT_EQ(view.currentIndex().row(), 0);
}

TEST_F(GridGroupsTest, RowsAreAsHighAsTheyNeed) {
  const int line = view.rowHeight(0);
  engine().setPreviewColumn(4);
  engine().changeSettings([](GridSettings& settings) {
    settings.previewRowLines = 3;
    settings.groupFooterStyle = kTotalsGroupFooter;
  });
  const int record = view.rowHeight(0);
  EXPECT_GE(record, line + 3 * view.fontMetrics().lineSpacing());
  engine().addGroup({1, 1});
  EXPECT_EQ(view.rowHeight(0), line) << "a header";
  EXPECT_EQ(view.rowHeight(1), record);
  EXPECT_EQ(view.rowHeight(21), line) << "a footer";
  engine().setExpanded(1, false);
  EXPECT_EQ(view.rowHeight(1), line) << "the next header";
  engine().setPreviewColumn(Null{});
  EXPECT_EQ(view.rowHeight(2), line);
}

TEST_F(GridGroupsTest, HeadersAreClickedDraggedAndResized) {
  const struct {
    int section;
    Qt::KeyboardModifiers modifiers;
    const char* keys;
  } clicks[] = {{2, Qt::NoModifier, "|3+"},
                {2, Qt::NoModifier, "|3-"},
                {1, Qt::ShiftModifier, "|3-2+"},
                {2, Qt::ControlModifier, "|3+2+"},
                {1, Qt::NoModifier, "|2+"}};
  for (const auto& c : clicks) {
    click(*header().viewport(), headerPoint(c.section), c.modifiers);
    EXPECT_EQ(keys(), c.keys);
  }
  drag(*header().viewport(), headerPoint(0), headerPoint(2) + QPoint(20, 0));
  EXPECT_EQ(order(), "2314");
  EXPECT_EQ(keys(), "|2+") << "dragging is no click";

  const QPoint edge(header().sectionViewportPosition(1) + header().sectionSize(1) - 1, 5);
  const int width = header().sectionSize(1);
  mouse(*header().viewport(), QEvent::MouseMove, edge);
  drag(*header().viewport(), edge, edge + QPoint(40, 0));
  EXPECT_EQ(engine().column(2).width, width + 40);
  view.undo();
  EXPECT_EQ(engine().column(2).width, 0) << "one step, however long it was dragged";
  EXPECT_EQ(header().sectionSize(1), width);
  view.undo();
  EXPECT_EQ(order(), "1234");
}

TEST_F(GridGroupsTest, ColumnsAreDraggedIntoAndOutOfTheBox) {
  EXPECT_EQ(header().viewport()->y(), 0);
  showBox();
  const int height = header().viewport()->y();
  ASSERT_GT(height, 10) << "the box stands above the headers";
  const auto intoBox = [&](int section, int x) {
    drag(*header().viewport(), headerPoint(section), QPoint(x, -height / 2));
  };
  intoBox(0, 300);
  EXPECT_EQ(keys(), "1+|");
  intoBox(1, 300);
  EXPECT_EQ(keys(), "1+2+|");
  intoBox(2, 2);
  EXPECT_EQ(keys(), "3+1+2+|");
  EXPECT_EQ(order(), "1234") << "the columns stay";
  drag(*chips()[2], {5, 5}, QPoint(2, 5) - chips()[2]->pos());
  EXPECT_EQ(keys(), "2+3+1+|");
  drag(*chips()[0], {5, 5}, chips()[2]->geometry().topRight() - chips()[0]->pos());
  EXPECT_EQ(keys(), "3+1+2+|");
  click(*chips()[1], {5, 5});
  EXPECT_EQ(keys(), "3+1-2+|");
  drag(*chips()[0], {5, 5}, {5, height + 30});
  EXPECT_EQ(keys(), "1-2+|");
  click(*header().viewport(), headerPoint(1));
  EXPECT_EQ(keys(), "1-2-|") << "the header of a grouped column turns the group round";
  intoBox(1, 2);
  EXPECT_EQ(keys(), "2-1-|");
  mouse(*header().viewport(), QEvent::MouseButtonPress, headerPoint(3));
  mouse(*header().viewport(), QEvent::MouseMove, {300, -height / 2});
  mouse(*header().viewport(), QEvent::MouseMove, headerPoint(3));
  mouse(*header().viewport(), QEvent::MouseButtonRelease, headerPoint(3));
  EXPECT_EQ(chips().size(), 2) << "back from the box";
}

TEST_F(GridGroupsTest, KeysDoWhatTheMouseDoes) {
  const auto current = [&](int row, int column) { view.setCurrentIndex(view.model()->index(row, column)); };
  current(0, 0);
  const struct {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    const char* keys;
    const char* order;
    int rows;
  } presses[] = {
      {Qt::Key_F3, {}, "|1+", "1234", 40},
      {Qt::Key_F3, {}, "|1-", "1234", 40},
      {Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier, "|1-", "2134", 40},
      {Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier, "|1-", "1234", 40},
      {Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier, "|1-", "1234", 40},
      {Qt::Key_G, Qt::ControlModifier, "1+|1-", "1234", 42},
      {Qt::Key_Minus, {}, "1+|1-", "1234", 22},
      {Qt::Key_Return, {}, "1+|1-", "1234", 42},
      {Qt::Key_Left, {}, "1+|1-", "1234", 22},
      {Qt::Key_Right, {}, "1+|1-", "1234", 42},
      {Qt::Key_Slash, {}, "1+|1-", "1234", 2},
      {Qt::Key_Space, {}, "1+|1-", "1234", 22},
      {Qt::Key_Asterisk, {}, "1+|1-", "1234", 42},
      {Qt::Key_Down, {}, "1+|1-", "1234", 42},
      {Qt::Key_Left, {}, "1+|1-", "1234", 42},   // from the record to its header
      {Qt::Key_Minus, {}, "1+|1-", "1234", 22},  // which it closes
      {Qt::Key_Z, Qt::ControlModifier, "|1-", "1234", 40},
      {Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier, "1+|1-", "1234", 42},
      {Qt::Key_G, Qt::ControlModifier, "|1-", "1234", 40},
      {Qt::Key_F3, Qt::ShiftModifier, "|1+", "1234", 40},
  };
  for (std::size_t i = 0; i < std::size(presses); ++i) {
    const auto& press = presses[i];
    gestures::press(view, press.key, press.modifiers);
    EXPECT_EQ(keys(), press.keys) << i;
    EXPECT_EQ(order(), press.order) << i;
    EXPECT_EQ(view.model()->rowCount(), press.rows) << i;
  }
  const int width = header().sectionSize(0);
  gestures::press(view, Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_EQ(engine().column(1).width, width + 10);
  for (int i = 0; i < 99; ++i) gestures::press(view, Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_EQ(engine().column(1).width, 20);
}

TEST_F(GridGroupsTest, KeysWorkInTheBox) {
  showBox();
  gestures::press(view, Qt::Key_F6);
  EXPECT_TRUE(view.hasFocus()) << "nothing to go to";
  for (const std::int32_t column : {1, 2, 3}) engine().addGroup({column, 1});
  gestures::press(view, Qt::Key_F6);
  const struct {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    const char* keys;
    int focus;
  } presses[] = {
      {Qt::Key_Right, {}, "1+2+3+|", 1},
      {Qt::Key_Right, Qt::ControlModifier, "1+3+2+|", 2},
      {Qt::Key_Right, {}, "1+3+2+|", 2},
      {Qt::Key_Space, {}, "1+3+2-|", 2},
      {Qt::Key_Left, Qt::ControlModifier, "1+2-3+|", 1},
      {Qt::Key_Return, {}, "1+2+3+|", 1},
      {Qt::Key_Delete, {}, "1+3+|", 1},
      {Qt::Key_Delete, {}, "1+|", 0},
  };
  for (const auto& press : presses) {
    QWidget* focus = QApplication::focusWidget();
    ASSERT_TRUE(focus);
    gestures::press(*focus, press.key, press.modifiers);
    EXPECT_EQ(keys(), press.keys);
    EXPECT_EQ(chips().indexOf(qobject_cast<QToolButton*>(QApplication::focusWidget())), press.focus);
  }
  gestures::press(*QApplication::focusWidget(), Qt::Key_Delete);
  EXPECT_EQ(keys(), "|");
  EXPECT_TRUE(view.hasFocus());
}

TEST_F(GridGroupsTest, AssistiveTechnologyHearsGroupsTotalsAndPreviews) {
  showBox();
  engine().addGroup({1, -1});
  engine().setPreviewColumn(4);
  engine().changeSettings([](GridSettings& settings) { settings.groupFooterStyle = kTotalsGroupFooter; });
  auto* table = QAccessible::queryAccessibleInterface(&view)->tableInterface();
  ASSERT_TRUE(table);
  EXPECT_EQ(table->cellAt(0, 2)->text(QAccessible::Name), "City: Volos (20)");
  EXPECT_EQ(table->cellAt(0, 2)->tableCellInterface()->columnExtent(), 4);
  EXPECT_TRUE(table->cellAt(0, 2)->state().expanded);
  EXPECT_EQ(table->cellAt(1, 0)->text(QAccessible::Description), "note 1\nsecond\nthird");
  EXPECT_EQ(table->cellAt(21, 1)->text(QAccessible::Name), "Kind: count 20");
  EXPECT_EQ(table->cellAt(21, 2)->text(QAccessible::Name), "Price: total 600");
  table->cellAt(0, 2)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
  EXPECT_TRUE(table->cellAt(0, 0)->state().collapsed);
  EXPECT_EQ(chips()[0]->accessibleName(), "Group by City, descending");
}

TEST_F(GridGroupsTest, AStateIsSavedAndRestored) {
  showBox();
  engine().addGroup({2, -1});
  engine().setPreviewColumn("Note");
  engine().setVisible(4, false);
  const QByteArray state = view.saveState();
  GridView other;
  QStandardItemModel narrower(3, 2);
  narrower.setHorizontalHeaderLabels({"Kind", "New"});
  other.setModel(&narrower);
  QStringList misfits;
  EXPECT_TRUE(other.restoreState(state, &misfits));
  EXPECT_EQ(misfits.size(), 5) << qPrintable(misfits.join('\n'));
  EXPECT_EQ(other.engine()->groups(), (std::vector<SortKey>{{1, -1}}));
  EXPECT_TRUE(view.restoreState(other.saveState()));
  EXPECT_FALSE(engine().column(4).visible) << "the narrower grid kept what it knew nothing of";
  EXPECT_FALSE(other.restoreState("rubbish", &misfits));
  EXPECT_EQ(misfits.size(), 6);
}

}  // namespace
}  // namespace vmgv

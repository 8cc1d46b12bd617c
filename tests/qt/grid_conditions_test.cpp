// Format conditions in the grid view: seen at once, told in words, and never cutting a text off.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QAccessibleTableInterface>
#include <QApplication>
#include <QImage>
#include <QWhatsThis>

#include "adapters/grid/grid_object.h"
#include "frontends/qt/gestures.h"
#include "frontends/qt/grid_view.h"
#include "support/strings/string_service.h"

namespace vmgv {
namespace {

struct Letters final : RowSource {
  std::string name() const override { return "letters"; }
  std::vector<ColumnSpec> columns() override { return {{"no", "No."}, {"letter", "Letter"}}; }
  void read(RowSink& sink, Problems&) override {
    for (int i = 1; i <= 8; ++i) {
      sink.whole(i);
      sink.text(std::string(1, static_cast<char>('a' + i)));
      sink.endRow();
    }
  }
};

struct PaintCounter final : QObject {
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++paints;
    return false;
  }
  int paints = 0;
};

struct GridConditionsTest : testing::Test {
  GridConditionsTest() {
    processStringService().setLanguage(kEnglish);
    Letters source;
    view.engine()->load(source);
    view.resize(400, 300);
    view.show();
    grid = makeGridObject(view.engine());
    QCoreApplication::processEvents();
  }
  ObjectRef add(const char* name, int op, const Value& value) {
    grid.object("FmtConditions").call("Add", 1, op, value, Missing{}, name);
    return grid.object("FmtConditions").item(name).object();
  }
  // Of a row's back, beside its text.
  QColor back(int row) {
    const QRect cell = view.visualRect(view.model()->index(row, 1));
    return view.viewport()->grab().toImage().pixelColor(cell.right() - 3, cell.center().y());
  }
  QVariant data(int row, int role) { return view.model()->index(row, 1).data(role); }

  GridView view;
  ObjectRef grid;
};

TEST_F(GridConditionsTest, ShowEachChangeOfARuleAtOnce) {
  const QColor base = back(0), red(255, 0, 0), blue(0, 0, 255);
  const ObjectRef large = add("Large", 2, 6), third = add("Third", 0, "3");
  PaintCounter counter;
  view.viewport()->installEventFilter(&counter);
  const auto repaints = [&](const ObjectRef& of, const char* member, const Value& value) {
    QCoreApplication::processEvents();
    counter.paints = 0;
    of.put(member, value);
    QCoreApplication::processEvents();
    return counter.paints > 0;
  };
  EXPECT_TRUE(repaints(large.object("FormatStyle"), "BackColor", 0x0000FF));
  EXPECT_TRUE(repaints(third.object("FormatStyle"), "BackColor", 0xFF0000));
  EXPECT_EQ(back(6), red);
  EXPECT_EQ(back(5), base);
  EXPECT_EQ(back(2), blue);
  EXPECT_TRUE(repaints(large, "Operator", 3));
  EXPECT_EQ(back(0), red);
  EXPECT_EQ(back(2), blue) << "the later rule wins";
  EXPECT_EQ(back(6), base);
  EXPECT_TRUE(repaints(third, "Value1", 4));
  EXPECT_EQ(back(2), red);
  EXPECT_TRUE(repaints(grid, "BackColor", 0x00FFFF));
  EXPECT_EQ(back(6), QColor(255, 255, 0));
  EXPECT_EQ(view.viewport()->grab().toImage().pixelColor(200, view.viewport()->height() - 5),
            QColor(255, 255, 0))
      << "below the rows";
  grid.put("UseEvenOddColor", true);
  EXPECT_NE(back(7), back(6));
  grid.object("FmtConditions").call("Remove", "Large");
  EXPECT_EQ(back(0), QColor(255, 255, 0));
}

TEST_F(GridConditionsTest, TakeFontsThatFitAndInkThatCanBeRead) {
  const ObjectRef style = add("Loud", 0, 2).object("FormatStyle");
  const int height = view.rowHeight(0);
  style.put("FontBold", true);
  style.put("FontSize", 24);
  EXPECT_GE(view.rowHeight(1), QFontMetrics(data(1, Qt::FontRole).value<QFont>()).height());
  EXPECT_GT(view.rowHeight(1), height);
  EXPECT_FALSE(data(0, Qt::FontRole).isValid());
  style.put("BackColor", 0x200000);
  EXPECT_EQ(data(1, Qt::ForegroundRole).value<QBrush>().color(), QColor(Qt::white));
  style.put("ForeColor", 0x0000FF);
  EXPECT_EQ(data(1, Qt::ForegroundRole).value<QBrush>().color(), QColor(Qt::red));
}

TEST_F(GridConditionsTest, SayWhyARowLooksAsItDoes) {
  add("Εξι & <b>", 0, 6).object("FormatStyle").put("BackColor", 0x0000FF);
  const ObjectRef late = add("Late", 4, 6).object("FormatStyle");
  late.put("BackColor", 0x00FF00);
  EXPECT_EQ(data(5, Qt::ToolTipRole).toString(),
            QString::fromUtf8("<b>Conditions of this row:</b> Εξι &amp; &lt;b&gt;, Late"
                              "<br>Background colour: Late"));
  EXPECT_EQ(data(4, Qt::ToolTipRole).toString(), "");
  auto* table = QAccessible::queryAccessibleInterface(&view)->tableInterface();
  EXPECT_EQ(table->cellAt(6, 1)->text(QAccessible::Name), "h, condition Late");
  processStringService().setLanguage(kGreek);
  EXPECT_EQ(table->cellAt(5, 1)->text(QAccessible::Name), QString::fromUtf8("g, συνθήκες Εξι & <b>, Late"));
  view.setCurrentIndex(view.model()->index(6, 1));
  gestures::press(view, Qt::Key_F1, Qt::ShiftModifier);
  const auto tops = QApplication::topLevelWidgets();
  EXPECT_TRUE(std::any_of(tops.begin(), tops.end(), [](const QWidget* top) {
    return top->isVisible() && top->inherits("QWhatsThat");
  }));
  QWhatsThis::hideText();
}

}  // namespace
}  // namespace vmgv

// Every text that the grid paints itself can be read, in a light and in a dark palette: measured from its
// pixels.
#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QStyle>
#include <QStyleFactory>
#include <QToolButton>
#include <algorithm>
#include <map>
#include <memory>

#include "adapters/grid/contrast.h"
#include "frontends/qt/grid_header.h"
#include "frontends/qt/grid_view.h"

namespace vmgv {
namespace {

struct Trips final : RowSource {
  std::string name() const override { return "trips"; }
  std::vector<ColumnSpec> columns() override { return {{"city", "City"}, {"price", "Price"}}; }
  void read(RowSink& sink, Problems&) override {
    for (const int price : {1, 2, 3, 4, 5, 6, 7, 8}) {
      sink.text("WWWWW");
      sink.whole(price);
      sink.endRow();
    }
  }
};

QPalette paletteOf(bool dark) {
  if (!dark) return std::unique_ptr<QStyle>(QStyleFactory::create("Fusion"))->standardPalette();
  QPalette palette(QColor(53, 53, 53));
  palette.setColor(QPalette::Base, QColor(35, 35, 35));
  palette.setColor(QPalette::AlternateBase, QColor(45, 45, 45));
  palette.setColor(QPalette::Highlight, QColor(42, 130, 218));
  return palette;
}

// Texts have no smoothed edges here: what is most is the background, and what differs most from it the text.
double contrastIn(const QImage& image, const QRect& place) {
  constexpr int kLeast = 12;  // pixels that a text has
  std::map<QRgb, int> counts;
  for (int y = place.top(); y <= place.bottom(); ++y) {
    for (int x = place.left(); x <= place.right(); ++x) ++counts[image.pixel(x, y) & 0xFFFFFF];
  }
  const QRgb back = std::max_element(counts.begin(), counts.end(), [](const auto& one, const auto& other) {
                      return one.second < other.second;
                    })->first;
  double most = 1;
  for (const auto& [colour, count] : counts) {
    if (count >= kLeast) most = std::max(most, contrast(colour, back));
  }
  return most;
}

struct ContrastTest : testing::TestWithParam<bool> {
  ContrastTest() {
    QApplication::setStyle("Fusion");
    QApplication::setPalette(paletteOf(GetParam()));
    QFont font("DejaVu Sans", 12);
    font.setStyleStrategy(QFont::NoAntialias);
    QApplication::setFont(font);
    Trips trips;
    view.engine()->load(trips);
    view.engine()->changeSettings([](GridSettings& settings) {
      settings.useEvenOddColor = true;
      settings.groupFooterStyle = kTotalsGroupFooter;
      settings.groupByBoxVisible = true;
      settings.groupByBoxInfoText = "WWWWWW";
    });
    view.engine()->setPreviewColumn(1);
    view.resize(500, 700);
    view.show();
    QCoreApplication::processEvents();
  }
  ~ContrastTest() override {
    QApplication::setPalette({});
    QApplication::setFont({});
  }

  void expectReadable(const char* what, QWidget& widget, const QRect& place) {
    QCoreApplication::processEvents();
    EXPECT_GE(contrastIn(widget.grab().toImage(), place.adjusted(2, 2, -2, -2)), kReadableContrast) << what;
  }
  void expectReadableRow(const char* what, int row) {
    const int line = view.rowHeight(row), half = line / 2;
    const QRect whole(20, view.rowViewportPosition(row), 120, line);
    const bool record = view.engine()->displayRow(row + 1).rowType == kRecordRow;
    expectReadable(what, *view.viewport(), record ? whole.adjusted(0, 0, 0, -half) : whole);
    if (record)
      expectReadable((std::string(what) + ", preview").c_str(), *view.viewport(),
                     whole.adjusted(0, half, 0, 0));
  }

  GridView view;
};

TEST_P(ContrastTest, OfTheGridsTexts) {
  auto& header = static_cast<GridHeader&>(*view.horizontalHeader());
  expectReadable("prompt of the group-by box", header.box(), QRect(8, 2, 100, header.box().height() - 4));
  view.engine()->addGroup({1, kSortAscending});
  QCoreApplication::processEvents();
  expectReadable("column header", *header.viewport(), QRect(0, 0, 60, header.viewport()->height()));
  expectReadable("group", *header.box().findChild<QToolButton*>(), QRect(0, 0, 60, 20));
  const int footer = 9;
  for (const bool selected : {false, true}) {
    view.engine()->select(selected ? std::vector<std::int32_t>{1, 2, 3, 10} : std::vector<std::int32_t>());
    expectReadableRow("header of a group", 0);
    expectReadableRow("record", 1);
    expectReadableRow("record of the other colour", 2);
    expectReadableRow("totals", footer);
  }
}

// Whatever a condition sets for one colour alone.
TEST_P(ContrastTest, OfConditions) {
  view.engine()->addCondition({"all", 2, 4, "0", {}, {}});
  for (const std::int32_t colour :
       {0x000000, 0x808080, 0x7F7F7F, 0x0000FF, 0xFF0000, 0x00FF00, 0x969696, 0xFFFFFF}) {
    FormatCondition condition{"all", 2, 4, "0", {}, {.backColor = colour}};
    view.engine()->removeCondition("all");
    view.engine()->addCondition(condition);
    expectReadableRow(("background " + std::to_string(colour)).c_str(), 1);
  }
}

INSTANTIATE_TEST_SUITE_P(Palettes, ContrastTest, testing::Bool(),
                         [](const auto& test) { return test.param ? "Dark" : "Light"; });

}  // namespace
}  // namespace vmgv

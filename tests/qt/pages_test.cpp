// The pane of a preview: which pages it draws, and how the user goes through them.
#include <QAbstractScrollArea>
#include <QScrollBar>
#include <QWheelEvent>
#include <set>

#include "support/automation/error.h"
#include "support/forms/page_preview.h"
#include "tests/qt/fixture.h"

namespace vmgv {
namespace {

// A5 pages in the colours of the rainbow; page 5 cannot be drawn.
class Pages final : public PageSource {
 public:
  std::int32_t count() override { return pages; }
  PageSize paper() override { return {419.5, 595.3}; }
  void draw(std::int32_t page, PageSurface& surface) override {
    drawn.insert(page);
    if (page == 5) throw Error(ErrorNumber::Application, "out of ink");
    surface.fill({0, 0, 419.5, 595.3}, page % 2 ? 0xFF0000 : 0x00FF00);
    surface.line(0, 0, 419.5, 595.3, 1, 0);
    surface.text(50, 100, "Ωμέγα", {"DejaVu Sans", 30}, 0);
  }
  void setUp() override { pages = 3; }
  void print(bool) override {}

  std::int32_t pages = 1'000'000;
  std::set<int> drawn;
};

struct PagesTest : QtTest {
  PagesTest() {
    form.resizable = true;
    form.content = layout::item(preview).stretch();
    form.open();
    preview.show(source);
  }
  QAbstractScrollArea& view() { return shownWidget<QAbstractScrollArea>(preview.pane()); }
  void wheel(int clicks) {
    QWheelEvent event({10, 10}, view().mapToGlobal(QPointF(10, 10)), {}, {0, clicks * 120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(view().viewport(), &event);
  }
  QColor middle(double across) {
    const QImage shown = view().viewport()->grab().toImage();
    return shown.pixelColor(static_cast<int>(shown.width() * across), shown.height() * 3 / 4);
  }

  Form form{"frmPages"};
  PagePreview& preview = form.add<PagePreview>("preview");
  std::shared_ptr<Pages> source = std::make_shared<Pages>();
};

TEST_F(PagesTest, OnlyPagesInSightAreDrawn) {
  play(form, {[&] {
                desktop.resize({12000, 9000});
                EXPECT_EQ(middle(0.5).rgb(), 0xFFFF0000);
                desktop.press(preview.pane(), Key::End, 0);
                EXPECT_EQ(preview.page(), 1'000'000);
                EXPECT_EQ(middle(0.5).rgb(), 0xFF00FF00);
                preview.setViewMode(ViewMode::TwoPages);
                preview.goTo(7);
              },
              [&] {
                EXPECT_EQ(middle(0.4).rgb(), 0xFFFF0000);
                EXPECT_EQ(middle(0.6).rgb(), 0xFF00FF00);
                EXPECT_EQ(source->drawn, (std::set<int>{1, 7, 8, 1'000'000}));
              }});
}

TEST_F(PagesTest, WheelKeysAndBarGoThroughThePages) {
  play(form, {[&] {
                desktop.resize({12000, 9000});
                wheel(-1), wheel(-1), wheel(1);
                EXPECT_EQ(preview.page(), 2);
                desktop.press(preview.pane(), Key::PageDown, 0);
                desktop.press(preview.pane(), Key::Down, 0);
                EXPECT_EQ(preview.page(), 4);
                view().verticalScrollBar()->setValue(77);
                EXPECT_EQ(preview.page(), 77);
                wheel(80), wheel(1);
                EXPECT_EQ(preview.page(), 1);
              },
              // Within a page that is larger than the pane first.
              [&] { preview.setViewMode(ViewMode::ZoomedIn); },
              [&] {
                desktop.resize({9000, 5000});
                QScrollBar& bar = *view().verticalScrollBar();
                ASSERT_GT(bar.maximum(), 0);
                wheel(-1);
                EXPECT_EQ(preview.page(), 1);
                EXPECT_GT(bar.value(), 0);
                bar.setValue(bar.maximum());
                wheel(-1);
                EXPECT_EQ(preview.page(), 2);
                EXPECT_EQ(bar.value(), 0) << "the next page begins at its top";
                wheel(1);
                EXPECT_EQ(bar.value(), bar.maximum()) << "and the one before at its end";
              }});
}

TEST_F(PagesTest, APageThatCannotBeDrawnSaysWhy) {
  play(form, {[&] { preview.goTo(5); },
              [&] {
                const QImage shown = view().viewport()->grab().toImage();
                bool ink = false;
                for (int x = 0; x < shown.width(); ++x) {
                  ink = ink || shown.pixelColor(x, shown.height() / 2).lightness() < 100;
                }
                EXPECT_TRUE(ink);
                desktop.click(*form.find("preview.toolbar.setup"));
                EXPECT_EQ(preview.page(), 3) << "fewer pages than the one that was shown";
              }});
}

}  // namespace
}  // namespace vmgv

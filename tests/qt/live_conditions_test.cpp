// The format conditions editor over the grid view: what the user edits is painted while the dialog is open.
#include <QImage>

#include "adapters/grid/grid_object.h"
#include "control/vmgr_edit.h"
#include "frontends/qt/grid_view.h"
#include "tests/qt/fixture.h"

namespace vmgv {
namespace {

constexpr int kRows = 6;

struct Measures final : RowSource {
  std::string name() const override { return "measures"; }
  std::vector<ColumnSpec> columns() override { return {{"width", "Width"}, {"height", "Height"}}; }
  void read(RowSink& sink, Problems&) override {
    for (int i = 1; i <= kRows; ++i) {
      sink.whole(i);
      sink.whole(kRows - i);
      sink.endRow();
    }
  }
};

struct LiveConditionsTest : QtTest {
  LiveConditionsTest() {
    processStringService().setLanguage(kEnglish);
    Measures source;
    view.engine()->load(source);
    view.resize(300, 300);
    view.show();
    auto* editor = new vmgrEdit(application);
    control = editor;
    editor->setGrid(makeGridObject(view.engine()));
  }
  QImage row(int number) {
    QCoreApplication::processEvents();
    const QRect first = view.visualRect(view.model()->index(number, 0));
    return view.viewport()->grab(QRect(0, first.top(), view.viewport()->width(), first.height())).toImage();
  }
  // The rows that were painted otherwise than when this was last asked, as "136".
  std::string changed() {
    std::string rows;
    for (int i = 0; i < kRows; ++i) {
      const QImage now = row(i);
      if (now != std::exchange(painted[static_cast<std::size_t>(i)], now)) rows += std::to_string(i + 1);
    }
    return rows;
  }
  Control& at(const char* address) { return *desktop.form()->find(address); }
  void choose(const char* list, const char* entry) {
    const auto& items = dynamic_cast<ListControl&>(at(list)).items();
    const auto found = std::find_if(items.begin(), items.end(), [entry](const std::string& item) {
      return item.find(entry) != std::string::npos;
    });
    desktop.choose(at(list), static_cast<int>(found - items.begin()));
  }

  Application application{desktop, desktop};
  GridView view;
  ObjectRef control;
  std::array<QImage, kRows> painted;
};

TEST_F(LiveConditionsTest, EachEditedRowIsSeenAtOnce) {
  using Act = std::function<void()>;
  const auto click = [this](const char* button) { return Act([=, this] { desktop.click(at(button)); }); };
  const auto enter = [this](const char* field, const char* text) {
    return Act([=, this] { desktop.enter(at(field), text); });
  };
  const auto pick = [this](const char* list, const char* entry) {
    return Act([=, this] { choose(list, entry); });
  };
  struct Edit {
    Act act;
    const char* rows;  // that look other than before
  };
  const std::vector<Edit> edits{
      {enter("smuProperties.value1", "3"), ""},
      {click("smuProperties.backcolor"), ""},
      {[this] { desktop.chooseColour(0x00C0FF); }, "3"},
      {pick("smuProperties.operator", "3 -"), "123"},  // less than
      {enter("smuProperties.value1", "2"), "2"},
      {pick("smuProperties.column", "Height"), "156"},
      {pick("smuProperties.operator", "6 -"), "56"},  // between 2 and nothing yet
      {enter("smuProperties.value2", "3"), "34"},
      {click("smuProperties.forecolor"), ""},
      {[this] { desktop.chooseColour(0xFF0000); }, "34"},
      {pick("smuProperties.font", "DejaVu Serif"), "34"},
      {enter("smuProperties.fontsize", "7"), "34"},
      {click("smuFont.1"), "34"},
      {click("smuFont.2"), "34"},
      {click("smuFont.3"), "34"},
      {click("smuFont.4"), "34"},
  };
  std::vector<Steps::Step> steps{click("smuToolbar.add"), [this] { desktop.click(at("cmdOK")); }};
  for (std::size_t i = 0; i < edits.size(); ++i) {
    steps.emplace_back([&, i] {
      changed();
      edits[i].act();
    });
    steps.emplace_back([&, i] {
      if (desktop.box()) return;
      EXPECT_EQ(changed(), edits[i].rows) << "edit " << i;
    });
  }
  Steps user(desktop, std::move(steps));
  control.call("ShowFormat");
  user.finish();
}

}  // namespace
}  // namespace vmgv

// Every single late-bound call of the layout dialogs fails once: no message, no crash, a grid that paints,
// and all that can be written is written.
#include <optional>

#include "tests/dialogs/contract_guide.h"
#include "tests/dialogs/fixture.h"

namespace vmgv {
namespace {

FakeGrid fullGrid() {
  FakeGrid grid = gridOfColumns(3);
  grid.columns[1].visible = false;
  grid.sortKeys = {{3, std::int16_t{-1}}, {1, std::int16_t{1}}};
  grid.groups = grid.sortKeys;
  grid.previewColumn = 2;
  return grid;
}

// Opens the dialog and confirms it. The grid's calls before it opened; nothing where it did not open.
std::optional<int> confirm(DialogFixture& f, const char* method, Fault& fault) {
  f.control.putRef("Grid", makeObject<FaultyObject>(f.grid.object(), fault));
  std::optional<int> opened;
  Steps user(f.desktop, {[&] {
               opened = fault.calls;
               f.desktop.click(f.at("cmdOK"));
             }});
  EXPECT_EQ(f.control.call(method), Value(false));
  return opened;
}

TEST(SilentFaults, EveryCallOfTheGrid) {
  const struct {
    const char* method;
    std::size_t lost;  // of the writes, at most, by one failing call
    bool opensWhole;   // or not at all
  } cases[] = {{"ShowSort", 2, false},
               {"ShowItems", 7, false},  // a count that fails leaves the lists empty
               {"ShowGroups", 1, true},
               {"ShowGeneral", 2, false}};
  for (const auto& c : cases) {
    Fault counting;
    DialogFixture healthy(fullGrid());
    const std::optional<int> loading = confirm(healthy, c.method, counting);
    ASSERT_TRUE(loading);
    EXPECT_EQ(counting.asked, membersInGuide(c.method));
    const std::size_t writes = healthy.grid.log.size();
    EXPECT_GE(writes, 5u) << c.method;
    for (int failAt = 1; failAt <= counting.calls; failAt += kFaultStep) {
      DialogFixture f(fullGrid());
      Fault fault{failAt};
      const bool opened = confirm(f, c.method, fault).has_value();
      const std::string what = std::string(c.method) + " " + std::to_string(failAt) + " " + fault.failed;
      EXPECT_GE(fault.calls, failAt) << what;
      EXPECT_TRUE(f.grid.redraw) << what;
      EXPECT_EQ(opened, !c.opensWhole || failAt > *loading) << what;
      if (opened) {
        EXPECT_GE(f.grid.log.size() + c.lost, writes) << what;
      } else {
        EXPECT_TRUE(f.grid.log.empty()) << what;
      }
      // With empty lists the chooser says that it needs a column.
      const bool asked = std::string_view(c.method) == "ShowItems" && f.grid.log.empty();
      EXPECT_EQ(f.messages().size(), asked ? 1u : 0u) << what;
    }
  }
}

}  // namespace
}  // namespace vmgv

// Dialogs leave nothing behind, however often they open and close.
#include "control/vmgr_edit.h"
#include "frontends/win32/win32_system.h"
#include "tests/dialogs/fake_grid.h"
#include "tests/win32/fixture.h"
#include "tests/win32/resources.h"

namespace vmgv {

TEST_F(Win32Test, FiveHundredOpeningsLeaveNothing) {
  constexpr int kWarmUp = 20, kOpenings = 500;
  Win32System system(desktop);
  EmbeddedStringService strings;
  strings.setLanguage(kGreek);
  Application application(desktop, system, strings);
  const ObjectRef control = makeObject<vmgrEdit>(application);
  FakeGrid grid = gridOfColumns(12);
  control.putRef("Grid", grid.object());
  for (const char* method : {"ShowSort", "ShowExcel"}) {
    const auto open = [&](int times) {
      for (int i = 0; i < times; ++i) {
        Steps user(desktop, {[&] { desktop.press(*desktop.focused(), Key::Tab, 0); },
                             [&] { desktop.press(*desktop.focused(), Key::Escape, 0); }});
        control.call(method);
        user.finish();
      }
    };
    open(kWarmUp);
    const Resources before = countResources();
    open(kOpenings);
    const Resources after = countResources();
    EXPECT_EQ(after.held, before.held) << method;
    // A leak would show in every opening; the platform's own caches take a block now and then.
    EXPECT_LT(after.heapBlocks, before.heapBlocks + kOpenings / 10) << method;
  }
}

}  // namespace vmgv

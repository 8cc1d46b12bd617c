// Dialogs that a COM host opens leave nothing behind, however often they open and close.
#include "frontends/com/bridge.h"
#include "frontends/user/steps.h"
#include "frontends/win32/win32_printing.h"
#include "servers/control/script_link.h"
#include "tests/control/libraries.h"
#include "tests/grid/fixture.h"
#include "tests/win32/resources.h"

namespace vmgv {

TEST(Growth, FiveHundredOpeningsLeaveNothing) {
  constexpr int kWarmUp = 20, kOpenings = 500;
  const ComPtr<_vmgrEdit> edit = test::makeControl();
  const ObjectRef control = wrapDispatch(edit.get());
  const auto engine = engineOf({{"City"}, {"Kind"}, {"Price"}}, {{"Volos", "lamp", 4.5}});
  Win32Desktop desktop;
  Win32Printing printing(desktop);
  engine->setPrintPort(&printing);
  control.putRef("Grid", makeGridObject(engine));
  LinkedUser hands(*test::entry<ScriptLinkExport>(GetModuleHandleW(L"vmGridViews.dll"), kScriptLinkExport)());
  for (const char* method : {"ShowSort", "ShowGroups", "ShowItems", "ShowGeneral", "ShowFormat", "ShowExcel",
                             "ShowSummary", "ShowPreviewX"}) {
    const auto open = [&](int times) {
      for (int i = 0; i < times; ++i) {
        Steps user(hands, {[&] { hands.press(*hands.focused(), Key::Tab, 0); },
                           [&] { hands.press(*hands.focused(), Key::Escape, 0); }});
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

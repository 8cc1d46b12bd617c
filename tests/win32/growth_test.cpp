// Dialogs that a COM host opens leave nothing behind, however often they open and close.
#include "frontends/com/bridge.h"
#include "frontends/user/steps.h"
#include "frontends/win32/win32_printing.h"
#include "servers/control/script_link.h"
#include "tests/control/libraries.h"
#include "tests/grid/fixture.h"
#include "tests/win32/resources.h"

#include <cstdlib>

namespace vmgv {
namespace {

// A leak shows in every opening. VMG_OPENINGS says how many there are of each dialog, where 500 take too
// long.
int openings() {
  const char* wanted = std::getenv("VMG_OPENINGS");
  return wanted ? std::atoi(wanted) : 500;
}

}  // namespace

TEST(Growth, OpeningsLeaveNothing) {
  constexpr int kWarmUp = 20;
  const int many = openings();
  ASSERT_GE(many, 100);
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
    open(many);
    const Resources after = countResources();
    EXPECT_EQ(after.held, before.held) << method;
    // The platform's own caches take a block now and then.
    EXPECT_LT(after.heapBlocks, before.heapBlocks + many / 10) << method;
  }
}

}  // namespace vmgv

// The dialogs' tests on native controls.
#pragma once

#include "frontends/headless/headless_system.h"
#include "frontends/user/steps.h"
#include "frontends/win32/win32_desktop.h"

namespace vmgv {

class TestDesktop final : public HeadlessSystem, public Win32Desktop {
 private:
  Steps nobody_{*this, {}};  // what opens without a step closes again
};

constexpr int kFaultStep = 7;  // one call in seven fails: Wine opens windows slowly, and on the other desktops each one does

}  // namespace vmgv

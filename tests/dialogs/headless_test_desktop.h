// The dialogs' tests without a screen.
#pragma once

#include "frontends/headless/headless_desktop.h"

namespace vmgv {

using TestDesktop = HeadlessDesktop;

constexpr int kFaultStep = 1;  // each call of a session fails once

}  // namespace vmgv

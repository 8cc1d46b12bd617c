// The dialogs' tests without a screen.
#pragma once

#include "frontends/headless/headless_desktop.h"

namespace vmgv {

using TestDesktop = HeadlessDesktop;

}  // namespace vmgv

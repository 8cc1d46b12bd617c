// What the controls of one apartment share: the platform and the core on top of it.
#pragma once

#include <memory>

#include "control/application.h"

namespace vmgv {

// Made for the apartment's first control; it goes with the last one, so that nothing of ours is left in a
// thread when the DLL is unloaded.
std::shared_ptr<Application> apartmentApplication();

}  // namespace vmgv

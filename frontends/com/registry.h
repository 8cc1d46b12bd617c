// The objects that stand on both sides of the border just now, so that each comes back as itself.
#pragma once

#include "frontends/com/com_ptr.h"
#include "frontends/com/exposure.h"
#include "frontends/com/host_object.h"

namespace vmgv {

// Called by the two kinds when they go.
void forget(const Exposure& exposure) noexcept;
void forget(const HostObject& object) noexcept;

}  // namespace vmgv

// Format conditions as a late-bound collection: by position or name, Add, Remove, enumeration.
#pragma once

#include "adapters/grid/grid_part.h"

namespace vmgv {

ObjectRef makeFmtConditionsObject(EngineRef engine);

}  // namespace vmgv

// The grid's font and its printer properties as late-bound objects.
#pragma once

#include "adapters/grid/grid_part.h"

namespace vmgv {

ObjectRef makeFontObject(EngineRef engine);
ObjectRef makePrinterObject(EngineRef engine);

}  // namespace vmgv

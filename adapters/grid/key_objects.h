// Sort keys and groups as late-bound collections: Count, Item, Add(colIndex, sortOrder), Clear.
#pragma once

#include "adapters/grid/grid_part.h"

namespace vmgv {

ObjectRef makeSortKeysObject(EngineRef engine);
ObjectRef makeGroupsObject(EngineRef engine);

}  // namespace vmgv

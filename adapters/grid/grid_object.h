// The engine as the late-bound grid object that clients of the contract use.
#pragma once

#include <memory>

#include "adapters/grid/engine.h"

namespace vmgv {

// Every object reached from the grid keeps the engine alive. Beyond the contract there are Font, BackColor
// and ForeColor of the grid, Width of a column and Name of a condition.
ObjectRef makeGridObject(std::shared_ptr<GridEngine> engine);

}  // namespace vmgv

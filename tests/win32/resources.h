// What this process holds of the system.
#pragma once

#include <array>
#include <cstddef>

namespace vmgv {

struct Resources {
  std::array<std::size_t, 3> held;  // windows, GDI objects, the next kernel handle
  std::size_t heapBlocks;
};

Resources countResources();

}  // namespace vmgv

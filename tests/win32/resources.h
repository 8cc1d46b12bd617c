// What this process holds of the system.
#pragma once

#include <cstddef>

namespace vmgv {

struct Resources {
  std::size_t windows = 0, gdiObjects = 0, kernelHandles = 0, heapBlocks = 0;
  bool operator==(const Resources&) const = default;
};

Resources countResources();

}  // namespace vmgv

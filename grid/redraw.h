// Lets the grid paint again after a rewrite.
#pragma once

#include "support/errors/errors.h"

namespace vmgv {

// A grid that stays frozen is worse than any other failure, so one more try follows a first refusal.
inline void resumeRedraw(const ObjectRef& grid) {
  if (attempt([&] { grid.put("Redraw", true); })) skipping([&] { grid.put("Redraw", true); });
}

}  // namespace vmgv

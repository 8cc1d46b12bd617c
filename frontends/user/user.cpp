#include "frontends/user/user.h"

namespace vmgv {

bool isUsable(const Control& control) {
  for (const Control* at = &control; at; at = at->container()) {
    if (!at->visible() || !at->enabled()) return false;
  }
  return true;
}

void requireUsable(const Control& control) {
  for (const Control* at = &control; at; at = at->container()) {
    if (!at->visible()) throw CannotDo(at->address() + " is hidden");
    if (!at->enabled()) throw CannotDo(at->address() + " is disabled");
  }
}

}  // namespace vmgv

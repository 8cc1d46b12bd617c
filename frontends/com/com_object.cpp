#include "frontends/com/com_object.h"

namespace vmgv {
namespace {

LONG living = 0;

}  // namespace

// An unload is asked for from any thread.
long livingComObjects() noexcept { return __atomic_load_n(&living, __ATOMIC_SEQ_CST); }

void detail::countComObject(long change) noexcept { __atomic_add_fetch(&living, change, __ATOMIC_SEQ_CST); }

}  // namespace vmgv

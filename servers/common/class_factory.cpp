#include "servers/common/class_factory.h"

#include <atomic>

#include "frontends/com/wall.h"

namespace vmgv {
namespace {

std::atomic<long> locks = 0;

}  // namespace

long serverLocks() noexcept { return locks; }

HRESULT ClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** out) {
  if (!out) return E_POINTER;
  *out = nullptr;
  if (outer && iid != IID_IUnknown) return CLASS_E_NOAGGREGATION;  // the rule of aggregation
  return guarded([&] { return made_.create(outer, iid, out); });
}

HRESULT ClassFactory::LockServer(BOOL lock) {
  locks += lock ? 1 : -1;
  return S_OK;
}

}  // namespace vmgv

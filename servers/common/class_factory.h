// Makes the objects of one class, and counts who keeps the server loaded.
#pragma once

#include "frontends/com/com_object.h"
#include "servers/common/server.h"

namespace vmgv {

class ClassFactory final : public ComObject<IClassFactory> {
 public:
  explicit ClassFactory(const ServerClass& made) noexcept : made_(made) {}

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** out) override;
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

 private:
  const ServerClass& made_;
};

// How many calls of LockServer hold the server.
long serverLocks() noexcept;

}  // namespace vmgv

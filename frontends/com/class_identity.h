// Which class an object belongs to: objects of one class number their members alike.
#pragma once

#include <ole2.h>

#include <string>

#include "support/automation/object.h"

namespace vmgv {

// How an object of ours tells its class, also to another module of ours. The number is never used again, not
// even when a module is unloaded and loaded.
struct IClassIdentity : public IUnknown {
  virtual HRESULT STDMETHODCALLTYPE GetClassIdentity(GUID* identity, BSTR* name) = 0;  // either may be null
};

// The identity of this module's class.
GUID identityOf(ClassId id) noexcept;

// One and the same address for equal numbers.
ClassId interned(const GUID& identity);

// What an object tells about its class, by our interface or by its type information: GUID_NULL and "" where
// it tells nothing. Each asks the object anew.
GUID toldIdentity(IDispatch* object) noexcept;
std::string toldClassName(IDispatch* object);

}  // namespace vmgv

__CRT_UUID_DECL(vmgv::IClassIdentity, 0x6f0c2b1e, 0x5d37, 0x4f4a, 0x9c, 0x62, 0x1b, 0x8e, 0x40, 0x7a, 0xd3,
                0x95)

// What one of our in-process servers is: its classes, and what is registered about them.
#pragma once

#include <ole2.h>

#include <optional>
#include <span>

namespace vmgv {

// What a form designer wants to know of a control before it makes one.
struct ControlFacts {
  DWORD miscStatus = 0;   // OLEMISC_...
  int toolboxBitmap = 0;  // the resource's number
};

struct ServerClass {
  CLSID clsid;
  const wchar_t* progId;   // without a version; "name.1" is registered beside "name"
  const wchar_t* caption;  // for people
  // Makes an object, as IClassFactory::CreateInstance does; may throw.
  HRESULT (*create)(IUnknown* outer, REFIID iid, void** out);
  std::optional<ControlFacts> control = {};
};

struct Server {
  std::span<const ServerClass> classes;
  std::optional<GUID> typeLibrary = {};  // embedded as resource 1, version 1.0
};

// Each DLL defines this one; its .def file exports the four entry points.
const Server& server();

// The DLL itself.
HINSTANCE moduleHandle() noexcept;

}  // namespace vmgv

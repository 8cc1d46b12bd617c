// The entry points of an in-process server.
#include <cstdlib>

#include "frontends/com/wall.h"
#include "servers/common/class_factory.h"
#include "servers/common/registration.h"

namespace vmgv {
namespace {

HINSTANCE module = nullptr;

}  // namespace

HINSTANCE moduleHandle() noexcept { return module; }

}  // namespace vmgv

// The run time's own names the exception that nobody caught, for which it brings 45 KB that take names apart.
// None gets out of here (see wall.h).
namespace __gnu_cxx {
void __verbose_terminate_handler() { std::abort(); }
}  // namespace __gnu_cxx

using namespace vmgv;

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void*) {
  if (reason == DLL_PROCESS_ATTACH) vmgv::module = instance;
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** out) {
  if (!out) return E_POINTER;
  *out = nullptr;
  for (const ServerClass& made : server().classes) {
    if (made.clsid == clsid) {
      return guarded([&] { return makeComObject<ClassFactory>(made)->QueryInterface(iid, out); });
    }
  }
  return CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() { return livingComObjects() == 0 && serverLocks() == 0 ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() {
  return guarded([] { registerServer(server(), writableScope()); });
}

STDAPI DllUnregisterServer() {
  return guarded([] {
    for (const Scope scope : {Scope::User, Scope::Machine}) {
      if (isRegistered(server(), scope)) unregisterServer(server(), scope);
    }
  });
}

// regsvr32 /n /i:user registers for the user alone, whatever the rights; with /u it goes.
STDAPI DllInstall(BOOL install, PCWSTR scope) {
  return guarded([&]() -> HRESULT {
    if (!scope || lstrcmpiW(scope, L"user") != 0) return E_INVALIDARG;
    if (install) {
      registerServer(server(), Scope::User);
    } else if (isRegistered(server(), Scope::User)) {
      unregisterServer(server(), Scope::User);
    }
    return S_OK;
  });
}

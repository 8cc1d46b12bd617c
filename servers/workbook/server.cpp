// The workbook's application object under a program id of its own, and under others where somebody asks for
// it.
#include "servers/common/server.h"

#include "adapters/workbook/application.h"
#include "frontends/com/bridge.h"
#include "frontends/com/wall.h"
#include "servers/workbook/documents.h"
#include "servers/workbook/prog_ids.h"

namespace vmgv {
namespace {

constexpr CLSID kWorkbook = {0x3c1d7a52, 0x8e0f, 0x4b96, {0xa3, 0x5b, 0x07, 0xd9, 0x6e, 0x41, 0xf2, 0xc8}};

HRESULT createWorkbook(IUnknown* outer, REFIID iid, void** out) {
  if (outer) return CLASS_E_NOAGGREGATION;
  static Documents documents;
  return exposeObject(makeWorkbookApplication(documents))->QueryInterface(iid, out);
}

}  // namespace

const Server& server() {
  static constexpr ServerClass classes[] = {
      {kWorkbook, L"vmGridViews.Workbook", L"vmGridViews workbook", createWorkbook}};
  static constexpr Server workbook{classes};
  return workbook;
}

}  // namespace vmgv

using namespace vmgv;

STDAPI DllInstall(BOOL install, PCWSTR scope);
STDAPI DllUnregisterServer();

// Exported as DllInstall: regsvr32 /n /i:ProgID registers the program id ProgID too; with /u it goes, and the
// server's own stays.
STDAPI InstallWorkbook(BOOL install, PCWSTR progId) {
  return guarded([&]() -> HRESULT {
    if (!progId || !*progId) return E_INVALIDARG;
    if (lstrcmpiW(progId, L"user") == 0) return DllInstall(install, progId);
    if (install) {
      const Scope scope = writableScope();
      if (!isRegistered(server(), scope)) registerServer(server(), scope);
      addProgId(kWorkbook, progId, scope);
      return S_OK;
    }
    for (const Scope scope : {Scope::User, Scope::Machine}) {
      if (isRegistered(server(), scope)) removeProgId(kWorkbook, progId, scope);
    }
    return S_OK;
  });
}

// Exported as DllUnregisterServer: the other program ids would lead nowhere.
STDAPI UnregisterWorkbook() {
  const HRESULT removed = guarded([] {
    for (const Scope scope : {Scope::User, Scope::Machine}) {
      if (isRegistered(server(), scope)) removeAllProgIds(kWorkbook, scope);
    }
  });
  return FAILED(removed) ? removed : DllUnregisterServer();
}

#include "servers/common/type_info.h"

#include "frontends/com/wall.h"
#include "servers/common/server.h"

namespace vmgv {

std::wstring modulePath() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(moduleHandle(), path.data(), static_cast<DWORD>(path.size()));
    if (length == 0) throw errorOf(HRESULT_FROM_WIN32(GetLastError()), "the server's own path");
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(2 * path.size());
  }
}

ComPtr<ITypeLib> embeddedTypeLibrary() {
  ComPtr<ITypeLib> library;
  check(LoadTypeLibEx(modulePath().c_str(), REGKIND_NONE, library.put()), "the server's type library");
  return library;
}

ComPtr<ITypeInfo> embeddedTypeInfo(REFGUID id) {
  ComPtr<ITypeInfo> info;
  check(embeddedTypeLibrary()->GetTypeInfoOfGuid(id, info.put()), "the server's type library");
  return info;
}

}  // namespace vmgv

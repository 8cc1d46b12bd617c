#include "frontends/win32/scopes.h"

extern "C" IMAGE_DOS_HEADER __ImageBase;  // the linker's name for where the module lies

namespace vmgv {

HINSTANCE thisModule() noexcept { return reinterpret_cast<HINSTANCE>(&__ImageBase); }

ThemeScope::ThemeScope() noexcept {
  ACTCTXW wanted{};
  wanted.cbSize = sizeof wanted;
  wanted.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
  wanted.lpResourceName = ISOLATIONAWARE_MANIFEST_RESOURCE_ID;
  wanted.hModule = thisModule();
  context_ = CreateActCtxW(&wanted);
  if (context_ != INVALID_HANDLE_VALUE) ActivateActCtx(context_, &cookie_);
}

ThemeScope::~ThemeScope() {
  if (cookie_ != 0) DeactivateActCtx(0, cookie_);
  if (context_ != INVALID_HANDLE_VALUE) ReleaseActCtx(context_);
}

}  // namespace vmgv

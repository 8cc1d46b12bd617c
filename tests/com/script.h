// A script engine with a few lines of script in it.
#pragma once

#include <activscp.h>

#include "frontends/com/text.h"
#include "frontends/com/wall.h"
#include "tests/com/things.h"

namespace vmgv::test {

class ScriptSite final : public ComObject<IActiveScriptSite> {
 public:
  HRESULT STDMETHODCALLTYPE GetLCID(LCID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetItemInfo(LPCOLESTR, DWORD, IUnknown**, ITypeInfo**) override {
    return TYPE_E_ELEMENTNOTFOUND;
  }
  HRESULT STDMETHODCALLTYPE GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnStateChange(SCRIPTSTATE) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnScriptError(IActiveScriptError* error) override {
    Exception exception;
    error->GetExceptionInfo(&exception);
    lastError = narrow(BString::view(exception.bstrDescription));
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE OnEnterScript() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnLeaveScript() override { return S_OK; }

  std::string lastError;  // what a user of the script would read
};

class Script {
 public:
  Script(const wchar_t* language, std::string_view text) {
    CLSID id;
    check(CLSIDFromProgID(language, &id), "script engine");
    check(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IActiveScript), engine_.putVoid()));
    const auto parser = engine_.as<IActiveScriptParse>();
    check(engine_->SetScriptSite(site.get()));
    check(parser->InitNew());
    check(engine_->SetScriptState(SCRIPTSTATE_STARTED));
    check(parser->ParseScriptText(wide(text).c_str(), nullptr, nullptr, nullptr, 0, 0, SCRIPTTEXT_ISVISIBLE,
                                  nullptr, nullptr));
    ComPtr<IDispatch> dispatch;
    check(engine_->GetScriptDispatch(nullptr, dispatch.put()));
    globals = wrapDispatch(dispatch.get());
  }
  Script(const Script&) = delete;
  Script& operator=(const Script&) = delete;
  ~Script() {
    globals = nullptr;
    engine_->Close();
  }

  ObjectRef globals;  // functions and variables
  ComPtr<ScriptSite> site = makeComObject<ScriptSite>();

 private:
  ComPtr<IActiveScript> engine_;
};

}  // namespace vmgv::test

// The one string service object of the process.
#include <ole2.h>
//
#include <initguid.h>  // makes the library's header define its ids
//
#include "string_service_library.h"
//
#include <mutex>

#include "frontends/com/com_object.h"
#include "frontends/com/text.h"
#include "frontends/com/wall.h"
#include "servers/common/server.h"
#include "servers/common/type_info.h"
#include "support/strings/string_service.h"

namespace vmgv {
namespace {

VARIANT_BOOL automationBoolean(bool value) { return value ? VARIANT_TRUE : VARIANT_FALSE; }

// Every apartment of the process gets this same object, so each call takes the lock.
class StringServiceObject final : public _MlStringService, public ISupportErrorInfo {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    if (!out) return E_POINTER;
    *out = nullptr;
    if (iid == IID_IUnknown || iid == IID_IDispatch || iid == IID__MlStringService) {
      *out = static_cast<_MlStringService*>(this);
    } else if (iid == IID_ISupportErrorInfo) {
      *out = static_cast<ISupportErrorInfo*>(this);
    } else {
      return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
  }
  // The object stays; a reference only keeps the server loaded.
  ULONG STDMETHODCALLTYPE AddRef() override {
    detail::countComObject(1);
    return 2;
  }
  ULONG STDMETHODCALLTYPE Release() override {
    detail::countComObject(-1);
    return 1;
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (!count) return E_POINTER;
    *count = 1;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** info) override {
    if (!info) return E_POINTER;
    *info = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    return guarded([&] { *info = typeInfo().detach(); });
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) override {
    if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (!names || !ids || count == 0) return E_INVALIDARG;
    return guarded([&] { return DispGetIDsOfNames(typeInfo().get(), names, count, ids); });
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID, WORD flags, DISPPARAMS* params,
                                   VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override {
    if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (!params) return E_INVALIDARG;
    return guarded([&] {
      return DispInvoke(static_cast<_MlStringService*>(this), typeInfo().get(), id, flags, params, result,
                        exception, badArgument);
    });
  }

  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override {
    return iid == IID__MlStringService ? S_OK : S_FALSE;
  }

  HRESULT STDMETHODCALLTYPE Load() override {
    return locked([&] { service_.Load(); });
  }
  HRESULT STDMETHODCALLTYPE get_Loaded(VARIANT_BOOL* loaded) override {
    if (!loaded) return E_POINTER;
    return locked([&] { *loaded = automationBoolean(service_.Loaded()); });
  }
  HRESULT STDMETHODCALLTYPE get_Language(short* language) override {
    if (!language) return E_POINTER;
    return locked([&] { *language = service_.Language(); });
  }
  HRESULT STDMETHODCALLTYPE put_Language(short language) override {
    return locked([&] {
      if (!chosen_) detail::countComObject(1);  // an unloaded server would forget the choice
      chosen_ = true;
      service_.setLanguage(language);
    });
  }
  HRESULT STDMETHODCALLTYPE GetString(BSTR application, BSTR key, BSTR* text) override {
    if (!text) return E_POINTER;
    *text = nullptr;
    return locked([&] {
      *text = BString(service_.GetString(narrow(BString::view(application)), narrow(BString::view(key))))
                  .detach();
    });
  }
  HRESULT STDMETHODCALLTYPE get_LanguageCharset(long* charset) override {
    if (!charset) return E_POINTER;
    return locked([&] { *charset = service_.LanguageCharset(); });
  }

 private:
  static ComPtr<ITypeInfo> typeInfo() { return embeddedTypeInfo(IID__MlStringService); }

  template <class Body>
  HRESULT locked(Body&& body) {
    return guarded([&] {
      const std::lock_guard lock(mutex_);
      body();
    });
  }

  std::mutex mutex_;
  EmbeddedStringService service_;
  bool chosen_ = false;
};

HRESULT create(IUnknown* outer, REFIID iid, void** out) {
  static StringServiceObject& service = *new StringServiceObject;  // outlives every caller, also at the end
  return outer ? CLASS_E_NOAGGREGATION : service.QueryInterface(iid, out);
}

const ServerClass kClasses[] = {
    {CLSID_MlStringService, L"vmGridViewsStrings.MlStringService", L"vmGridViews string service", create}};

}  // namespace

const Server& server() {
  static const Server server{kClasses, LIBID_vmGridViewsStrings};
  return server;
}

}  // namespace vmgv

// A container of the tests' own, and what it gives its control.
#pragma once

#include <map>
#include <vector>

#include "tests/control/libraries.h"

namespace vmgv::test {

// The DejaVu fonts at 9, 12 or 15 points exist everywhere as asked for, in whole pixels.
ComPtr<IFontDisp> makeFont(const wchar_t* name, int points, bool bold = false);
// "DejaVu Sans 12 bold"
std::string described(IFontDisp* font);
std::string fontOf(_vmgrEdit& control);

// A window with one control's site.
class Container final : public ComObject<IOleClientSite, IOleInPlaceSite, IDispatch, IPropertyNotifySink> {
 public:
  explicit Container(ComPtr<IFontDisp> ambientFont = {}) : ambient(std::move(ambientFont)) {}
  ~Container() override { DestroyWindow(window); }

  ComPtr<IFontDisp> ambient;       // null: it has none
  RECT position{10, 20, 110, 80};  // where it would like the control
  std::vector<DISPID> changes;     // of persisted properties
  int sizeRequests = 0;
  IOleInPlaceObject* placed = nullptr;  // told its new place, as containers do
  HWND window = CreateWindowExW(0, L"STATIC", L"container", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300, 200,
                                nullptr, nullptr, nullptr, nullptr);

  // IOleClientSite
  HRESULT STDMETHODCALLTYPE SaveObject() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer**) override { return E_NOINTERFACE; }
  HRESULT STDMETHODCALLTYPE ShowObject() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() override { return E_NOTIMPL; }
  // IOleInPlaceSite
  HRESULT STDMETHODCALLTYPE GetWindow(HWND* out) override { return *out = window, S_OK; }
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE CanInPlaceActivate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnInPlaceActivate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnUIActivate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame**, IOleInPlaceUIWindow**, RECT* at, RECT* clip,
                                             OLEINPLACEFRAMEINFO*) override {
    *at = position;
    GetClientRect(window, clip);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Scroll(SIZE) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE DiscardUndoState() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE DeactivateAndUndo() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnPosRectChange(const RECT* wanted) override {
    ++sizeRequests;
    position = *wanted;
    const RECT clip{0, 0, 300, 200};
    return placed ? placed->SetObjectRects(&position, &clip) : S_OK;
  }
  // IDispatch: the ambient properties
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_FAIL; }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                                   UINT*) override {
    if (id != DISPID_AMBIENT_FONT || !ambient) return DISP_E_MEMBERNOTFOUND;
    result->vt = VT_DISPATCH;
    result->pdispVal = ComPtr<IFontDisp>(ambient).detach();
    return S_OK;
  }
  // IPropertyNotifySink
  HRESULT STDMETHODCALLTYPE OnChanged(DISPID id) override { return changes.push_back(id), S_OK; }
  HRESULT STDMETHODCALLTYPE OnRequestEdit(DISPID) override { return S_OK; }

 protected:
  void* otherInterface(REFIID iid) noexcept override {
    return iid == IID_IOleWindow ? static_cast<IOleInPlaceSite*>(this) : nullptr;
  }
};

// What a designer's file keeps.
class Bag final : public ComObject<IPropertyBag> {
 public:
  std::map<std::wstring, ComPtr<IUnknown>> kept;

  HRESULT STDMETHODCALLTYPE Read(LPCOLESTR name, VARIANT* value, IErrorLog*) override {
    if (!kept.contains(name)) return E_INVALIDARG;
    value->vt = VT_UNKNOWN;
    value->punkVal = ComPtr(kept[name]).detach();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Write(LPCOLESTR name, VARIANT* value) override {
    return kept[name] = value->punkVal, S_OK;
  }
};

}  // namespace vmgv::test

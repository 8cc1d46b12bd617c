// The control in its container: its life, its place and its picture.
#include "frontends/com/wall.h"
#include "servers/control/edit_control.h"

namespace vmgv {
namespace {

constexpr int kHimetricPerInch = 2540;

// The icon's size in 1/100 mm on this screen.
SIZEL iconHimetric() noexcept {
  HDC screen = GetDC(nullptr);
  const int horizontally = GetDeviceCaps(screen, LOGPIXELSX), vertically = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  return {MulDiv(kIconPixels, kHimetricPerInch, horizontally),
          MulDiv(kIconPixels, kHimetricPerInch, vertically)};
}

}  // namespace

HRESULT EditControl::SetClientSite(IOleClientSite* site) {
  if (!site) inPlace_.deactivate();
  site_ = site;
  return S_OK;
}

HRESULT EditControl::GetClientSite(IOleClientSite** site) {
  if (!site) return E_POINTER;
  *site = ComPtr<IOleClientSite>(site_).detach();
  return S_OK;
}

HRESULT EditControl::Close(DWORD saveOption) {
  const ComPtr<IUnknown> stay(&identity_);
  inPlace_.deactivate();
  if (saveOption != OLECLOSE_NOSAVE && dirty_ && site_) {  // nothing here is worth a question
    site_->SaveObject();
    if (advises_) advises_->SendOnSave();
  }
  if (advises_) advises_->SendOnClose();
  return S_OK;
}

HRESULT EditControl::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
  if (!moniker) return E_POINTER;
  *moniker = nullptr;
  return E_NOTIMPL;
}

HRESULT EditControl::GetClipboardData(DWORD, IDataObject** data) {
  if (!data) return E_POINTER;
  *data = nullptr;
  return E_NOTIMPL;
}

HRESULT EditControl::DoVerb(LONG verb, LPMSG, IOleClientSite*, LONG, HWND, LPCRECT) {
  switch (verb) {
    case OLEIVERB_PRIMARY:
    case OLEIVERB_SHOW:
    case OLEIVERB_INPLACEACTIVATE:
    case OLEIVERB_UIACTIVATE:
      return guarded([&] {
        const HRESULT activated = inPlace_.activate(site_.get());
        if (SUCCEEDED(activated)) inPlace_.show(true);
        return activated;
      });
    case OLEIVERB_HIDE: inPlace_.show(false); return S_OK;
    case OLEIVERB_DISCARDUNDOSTATE: return S_OK;
    default: return verb > 0 ? OLEOBJ_S_INVALIDVERB : E_NOTIMPL;
  }
}

HRESULT EditControl::EnumVerbs(IEnumOLEVERB** verbs) {
  if (!verbs) return E_POINTER;
  *verbs = nullptr;
  return OLEOBJ_E_NOVERBS;
}

HRESULT EditControl::GetUserType(DWORD, LPOLESTR* name) {
  if (!name) return E_POINTER;
  const std::size_t bytes = (std::wcslen(kCaption) + 1) * sizeof(wchar_t);
  *name = static_cast<LPOLESTR>(CoTaskMemAlloc(bytes));
  if (!*name) return E_OUTOFMEMORY;
  std::memcpy(*name, kCaption, bytes);
  return S_OK;
}

HRESULT EditControl::SetExtent(DWORD aspect, SIZEL* size) {
  if (!size) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  const SIZEL own = iconHimetric();
  if (size->cx == own.cx && size->cy == own.cy) return S_OK;
  return guarded([&] {
    core_->Resize();
    return E_FAIL;  // the size is fixed
  });
}

HRESULT EditControl::GetExtent(DWORD aspect, SIZEL* size) {
  if (!size) return E_POINTER;
  *size = {};
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  *size = iconHimetric();
  return S_OK;
}

HRESULT EditControl::Advise(IAdviseSink* sink, DWORD* cookie) {
  if (!sink || !cookie) return E_POINTER;
  if (!advises_) {
    const HRESULT made = CreateOleAdviseHolder(advises_.put());
    if (FAILED(made)) return made;
  }
  return advises_->Advise(sink, cookie);
}

HRESULT EditControl::Unadvise(DWORD cookie) {
  return advises_ ? advises_->Unadvise(cookie) : OLE_E_NOCONNECTION;
}

HRESULT EditControl::EnumAdvise(IEnumSTATDATA** advises) {
  if (!advises) return E_POINTER;
  *advises = nullptr;
  return advises_ ? advises_->EnumAdvise(advises) : S_OK;
}

HRESULT EditControl::GetMiscStatus(DWORD aspect, DWORD* status) {
  if (!status) return E_POINTER;
  *status = aspect == DVASPECT_CONTENT ? kMiscStatus : 0;
  return aspect == DVASPECT_CONTENT ? S_OK : DV_E_DVASPECT;
}

HRESULT EditControl::GetControlInfo(CONTROLINFO* info) {
  if (!info) return E_POINTER;
  info->hAccel = nullptr;
  info->cAccel = 0;
  info->dwFlags = 0;
  return S_OK;
}

HRESULT EditControl::GetWindow(HWND* window) {
  if (!window) return E_POINTER;
  *window = inPlace_.window();
  return *window ? S_OK : E_FAIL;
}

HRESULT EditControl::InPlaceDeactivate() {
  const ComPtr<IUnknown> stay(&identity_);
  inPlace_.deactivate();
  return S_OK;
}

HRESULT EditControl::SetObjectRects(LPCRECT position, LPCRECT clip) {
  if (!position) return E_POINTER;
  if (!inPlace_.active()) return E_UNEXPECTED;
  return guarded([&] {
    if (!inPlace_.place(*position, clip)) core_->Resize();
  });
}

HRESULT EditControl::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC target, LPCRECTL bounds,
                          LPCRECTL, BOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR) {
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  if (!bounds) return E_POINTER;
  if (!target) return E_INVALIDARG;
  const RECT where{bounds->left, bounds->top, bounds->right, bounds->bottom};
  return Icon().draw(target, where) ? S_OK : E_FAIL;
}

HRESULT EditControl::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE** palette) {
  if (!palette) return E_POINTER;
  *palette = nullptr;
  return S_FALSE;
}

HRESULT EditControl::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) {
  if (aspects & ~static_cast<DWORD>(DVASPECT_CONTENT)) return DV_E_DVASPECT;
  viewSink_ = sink;
  viewAspects_ = aspects;
  viewFlags_ = flags;
  // The picture never changes: this is the only notification there is.
  if (sink && (flags & ADVF_PRIMEFIRST)) {
    if (flags & ADVF_ONLYONCE) viewSink_ = nullptr;
    const ComPtr<IAdviseSink> stay(sink);
    sink->OnViewChange(DVASPECT_CONTENT, -1);
  }
  return S_OK;
}

HRESULT EditControl::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) {
  if (aspects) *aspects = viewAspects_;
  if (flags) *flags = viewFlags_;
  if (sink) *sink = ComPtr<IAdviseSink>(viewSink_).detach();
  return S_OK;
}

}  // namespace vmgv

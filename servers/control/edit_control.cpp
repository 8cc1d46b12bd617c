#include "servers/control/edit_control.h"

#include "frontends/com/bridge.h"
#include "frontends/com/wall.h"
#include "servers/common/type_info.h"
#include "servers/control/apartment.h"
#include "servers/control/fonts.h"

namespace vmgv {

HRESULT EditControl::create(IUnknown* outer, REFIID iid, void** out) {
  auto* const control = new EditControl(outer);
  ComPtr<IUnknown> owner(&control->identity_);
  return owner->QueryInterface(iid, out);
}

EditControl::EditControl(IUnknown* outer)
    : outer_(outer ? outer : &identity_),
      application_(apartmentApplication()),
      core_(new vmgrEdit(*application_, this)),
      coreOwner_(core_) {}

HRESULT EditControl::Identity::QueryInterface(REFIID iid, void** out) {
  if (iid != IID_IUnknown) return control_.Base::QueryInterface(iid, out);
  if (!out) return E_POINTER;
  *out = this;
  AddRef();
  return S_OK;
}

void* EditControl::otherInterface(REFIID iid) noexcept {
  if (iid == IID_IDispatch) return static_cast<_vmgrEdit*>(this);
  if (iid == IID_IOleWindow) return static_cast<IOleInPlaceObject*>(this);
  if (iid == IID_IViewObject) return static_cast<IViewObject2*>(this);
  if (iid == IID_IPersist || iid == IID_IPersistStream) return static_cast<IPersistStreamInit*>(this);
  if (iid == IID_IProvideClassInfo) return static_cast<IProvideClassInfo2*>(this);
  return nullptr;
}

// The container.

ObjectRef EditControl::ambientFont() { return wrapDispatch(vmgv::ambientFont(site_.get()).get()); }

void EditControl::propertyChanged(std::string_view) {  // there is but one
  dirty_ = true;
  constexpr DISPID kFont = 0x6803000C;
  for (const auto& sink : propertyNotifications_.sinks()) {
    static_cast<IPropertyNotifySink*>(sink.get())->OnChanged(kFont);
  }
}

HRESULT EditControl::QuickActivate(QACONTAINER* container, QACONTROL* control) {
  if (!container || !control) return E_POINTER;
  if (container->cbSize < sizeof(QACONTAINER) || control->cbSize < sizeof(QACONTROL)) return E_INVALIDARG;
  const ULONG size = control->cbSize;
  *control = {};
  control->cbSize = size;
  SetClientSite(container->pClientSite);
  if (container->pAdviseSink) SetAdvise(DVASPECT_CONTENT, 0, container->pAdviseSink);
  if (container->pPropertyNotifySink) {
    propertyNotifications_.Advise(container->pPropertyNotifySink, &control->dwPropNotifyCookie);
  }
  if (container->pUnkEventSink) events_.Advise(container->pUnkEventSink, &control->dwEventCookie);
  control->dwMiscStatus = kMiscStatus;
  return S_OK;
}

HRESULT EditControl::EnumConnectionPoints(IEnumConnectionPoints** points) {
  return enumerate({&events_, &propertyNotifications_}, points);
}

HRESULT EditControl::FindConnectionPoint(REFIID iid, IConnectionPoint** point) {
  if (!point) return E_POINTER;
  *point = pointFor(iid);
  if (!*point) return CONNECT_E_NOCONNECTION;
  (*point)->AddRef();
  return S_OK;
}

ConnectionPoint* EditControl::pointFor(REFIID iid) noexcept {
  for (ConnectionPoint* point : {&events_, &propertyNotifications_}) {
    if (point->outgoing() == iid) return point;
  }
  return nullptr;
}

// The class.

HRESULT EditControl::GetClassID(CLSID* clsid) {
  if (!clsid) return E_POINTER;
  *clsid = __uuidof(::vmgrEdit);
  return S_OK;
}

HRESULT EditControl::GetClassInfo(ITypeInfo** info) {
  if (!info) return E_POINTER;
  *info = nullptr;
  return guarded([&] { *info = embeddedTypeInfo(__uuidof(::vmgrEdit)).detach(); });
}

HRESULT EditControl::GetGUID(DWORD kind, GUID* guid) {
  if (!guid) return E_POINTER;
  *guid = {};
  if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
  *guid = events_.outgoing();
  return S_OK;
}

HRESULT EditControl::InterfaceSupportsErrorInfo(REFIID iid) {
  return iid == __uuidof(_vmgrEdit) ? S_OK : S_FALSE;
}

}  // namespace vmgv

// The editor control as its hosts see it: the core's vmgrEdit behind the interfaces of a control.
#pragma once

#include <ole2.h>
//
#include <ocidl.h>
#include <olectl.h>

#include "control/vmgr_edit.h"
#include "frontends/com/com_object.h"
#include "servers/control/arguments.h"
#include "frontends/com/connections.h"
#include "servers/control/in_place.h"
#include "vmgridviews.h"

namespace vmgv {

// Not here, on purpose:
// - IObjectSafety: the control writes files and drives programs for its user, so no page may script it
// unasked.
// - ISpecifyPropertyPages: the one persisted property is a font, for which every designer has its own editor.
class EditControl final
    : public ComObject<_vmgrEdit, IOleObject, IOleControl, IOleInPlaceObject, IOleInPlaceActiveObject,
                       IViewObject2, IPersistStreamInit, IPersistStorage, IPersistPropertyBag, IQuickActivate,
                       IConnectionPointContainer, IProvideClassInfo2, ISupportErrorInfo>,
      private ControlSite {
 public:
  using Base = ComObject;

  // There is nothing to see or to click at run time. The site comes first: loading needs its ambient font.
  static constexpr DWORD kMiscStatus = OLEMISC_CANTLINKINSIDE | OLEMISC_INSIDEOUT |
                                       OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_INVISIBLEATRUNTIME |
                                       OLEMISC_SETCLIENTSITEFIRST | OLEMISC_NOUIACTIVATE;
  static constexpr const wchar_t* kCaption = L"vmGridViews editor";

  // As IClassFactory::CreateInstance; a designer's extender may aggregate the control.
  static HRESULT create(IUnknown* outer, REFIID iid, void** out);

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    return outer_->QueryInterface(iid, out);
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return outer_->AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return outer_->Release(); }

  // IDispatch
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* params,
                                   VARIANT* result, EXCEPINFO* exception, UINT* faulty) override;

  // _vmgrEdit
  HRESULT STDMETHODCALLTYPE get_CurrentCatalog(IDispatch** catalog) override;
  HRESULT STDMETHODCALLTYPE putref_CurrentCatalog(IDispatch* catalog) override;
  HRESULT STDMETHODCALLTYPE get_CurrentView(BSTR* view) override;
  HRESULT STDMETHODCALLTYPE put_CurrentView(BSTR view) override;
  HRESULT STDMETHODCALLTYPE putref_Grid(IDispatch* grid) override;
  HRESULT STDMETHODCALLTYPE get_Grid(IDispatch** grid) override;
  HRESULT STDMETHODCALLTYPE ShowSummary(VARIANT_BOOL* changed) override;
  HRESULT STDMETHODCALLTYPE ShowSort(VARIANT_BOOL* changed) override;
  HRESULT STDMETHODCALLTYPE ShowOther(VARIANT_BOOL* changed) override;
  HRESULT STDMETHODCALLTYPE ShowItems(VARIANT_BOOL* changed) override;
  HRESULT STDMETHODCALLTYPE ShowGroups(VARIANT_BOOL* changed) override;
  HRESULT STDMETHODCALLTYPE ShowExcel(VARIANT_BOOL* changed) override;
  HRESULT STDMETHODCALLTYPE ShowFormat(VARIANT_BOOL* changed) override;
  HRESULT STDMETHODCALLTYPE get_Font(IFontDisp** font) override;
  HRESULT STDMETHODCALLTYPE putref_Font(IFontDisp* font) override;
  HRESULT STDMETHODCALLTYPE ShowPreview(BSTR* header, VARIANT_BOOL* LLToolbar,
                                        VARIANT_BOOL* changed) override;
  HRESULT STDMETHODCALLTYPE ShowPreviewX(BSTR header, VARIANT_BOOL LLToolbar, VARIANT_BOOL onlySelected,
                                         VARIANT_BOOL* changed) override;
  HRESULT STDMETHODCALLTYPE ShowGeneral(VARIANT_BOOL* changed) override;
  HRESULT STDMETHODCALLTYPE get_excelVisible(VARIANT_BOOL* visible) override;
  HRESULT STDMETHODCALLTYPE put_excelVisible(VARIANT_BOOL visible) override;

  // IOleObject
  HRESULT STDMETHODCALLTYPE SetClientSite(IOleClientSite* site) override;
  HRESULT STDMETHODCALLTYPE GetClientSite(IOleClientSite** site) override;
  HRESULT STDMETHODCALLTYPE SetHostNames(LPCOLESTR, LPCOLESTR) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE Close(DWORD saveOption) override;
  HRESULT STDMETHODCALLTYPE SetMoniker(DWORD, IMoniker*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker** moniker) override;
  HRESULT STDMETHODCALLTYPE InitFromData(IDataObject*, BOOL, DWORD) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetClipboardData(DWORD, IDataObject** data) override;
  HRESULT STDMETHODCALLTYPE DoVerb(LONG verb, LPMSG, IOleClientSite*, LONG, HWND, LPCRECT) override;
  HRESULT STDMETHODCALLTYPE EnumVerbs(IEnumOLEVERB** verbs) override;
  HRESULT STDMETHODCALLTYPE Update() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE IsUpToDate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GetUserClassID(CLSID* clsid) override { return GetClassID(clsid); }
  HRESULT STDMETHODCALLTYPE GetUserType(DWORD form, LPOLESTR* name) override;
  HRESULT STDMETHODCALLTYPE SetExtent(DWORD aspect, SIZEL* size) override;
  HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, SIZEL* size) override;
  HRESULT STDMETHODCALLTYPE Advise(IAdviseSink* sink, DWORD* cookie) override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
  HRESULT STDMETHODCALLTYPE EnumAdvise(IEnumSTATDATA** advises) override;
  HRESULT STDMETHODCALLTYPE GetMiscStatus(DWORD aspect, DWORD* status) override;
  HRESULT STDMETHODCALLTYPE SetColorScheme(LOGPALETTE*) override { return E_NOTIMPL; }

  // IOleControl: no keys, no events to hold back, and ambient values are asked for when needed
  HRESULT STDMETHODCALLTYPE GetControlInfo(CONTROLINFO* info) override;
  HRESULT STDMETHODCALLTYPE OnMnemonic(MSG*) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnAmbientPropertyChange(DISPID) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE FreezeEvents(BOOL) override { return S_OK; }

  // IOleInPlaceObject
  HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override;
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE InPlaceDeactivate() override;
  HRESULT STDMETHODCALLTYPE UIDeactivate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE SetObjectRects(LPCRECT position, LPCRECT clip) override;
  HRESULT STDMETHODCALLTYPE ReactivateAndUndo() override { return E_NOTIMPL; }

  // IOleInPlaceActiveObject: the control takes no focus, but some containers ask for its window here
  HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG) override { return S_FALSE; }
  HRESULT STDMETHODCALLTYPE OnFrameWindowActivate(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnDocWindowActivate(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) override { return S_OK; }

  // IViewObject2
  HRESULT STDMETHODCALLTYPE Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC target, LPCRECTL bounds,
                                 LPCRECTL, BOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR) override;
  HRESULT STDMETHODCALLTYPE GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC,
                                        LOGPALETTE** palette) override;
  HRESULT STDMETHODCALLTYPE Freeze(DWORD, LONG, void*, DWORD*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Unfreeze(DWORD) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
  HRESULT STDMETHODCALLTYPE GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) override;
  HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, LPSIZEL size) override {
    return GetExtent(aspect, size);
  }

  // IPersistStreamInit, IPersistStorage, IPersistPropertyBag
  HRESULT STDMETHODCALLTYPE GetClassID(CLSID* clsid) override;
  HRESULT STDMETHODCALLTYPE IsDirty() override { return dirty_ ? S_OK : S_FALSE; }
  HRESULT STDMETHODCALLTYPE InitNew() override;
  HRESULT STDMETHODCALLTYPE Load(IStream* stream) override;
  HRESULT STDMETHODCALLTYPE Save(IStream* stream, BOOL clearDirty) override;
  HRESULT STDMETHODCALLTYPE GetSizeMax(ULARGE_INTEGER* size) override;
  HRESULT STDMETHODCALLTYPE InitNew(IStorage* storage) override;
  HRESULT STDMETHODCALLTYPE Load(IStorage* storage) override;
  HRESULT STDMETHODCALLTYPE Save(IStorage* storage, BOOL sameAsLoad) override;
  HRESULT STDMETHODCALLTYPE SaveCompleted(IStorage*) override;
  HRESULT STDMETHODCALLTYPE HandsOffStorage() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE Load(IPropertyBag* bag, IErrorLog* log) override;
  HRESULT STDMETHODCALLTYPE Save(IPropertyBag* bag, BOOL clearDirty, BOOL all) override;

  // IQuickActivate
  HRESULT STDMETHODCALLTYPE QuickActivate(QACONTAINER* container, QACONTROL* control) override;
  HRESULT STDMETHODCALLTYPE SetContentExtent(LPSIZEL size) override {
    return SetExtent(DVASPECT_CONTENT, size);
  }
  HRESULT STDMETHODCALLTYPE GetContentExtent(LPSIZEL size) override {
    return GetExtent(DVASPECT_CONTENT, size);
  }

  // IConnectionPointContainer
  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override;
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;

  // IProvideClassInfo2
  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* guid) override;

  // ISupportErrorInfo
  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override;

 private:
  // The control's own identity: what an aggregating object holds, and what counts the references.
  class Identity final : public IUnknown {
   public:
    explicit Identity(EditControl& control) noexcept : control_(control) {}
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return control_.Base::AddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return control_.Base::Release(); }

   private:
    EditControl& control_;
  };

  explicit EditControl(IUnknown* outer);
  void* otherInterface(REFIID iid) noexcept override;

  // ControlSite, in pixels
  ObjectRef ambientFont() override;
  void propertyChanged(std::string_view property) override;
  Size pixel() const override { return {1, 1}; }
  void setSize(Size size) override { inPlace_.askForSize(size.width, size.height); }

  HRESULT show(VARIANT_BOOL* changed, bool (vmgrEdit::*dialog)());
  void showFormat();
  HRESULT read(DISPID id, VARIANT& result);
  HRESULT write(DISPID id, const Arguments& arguments);
  HRESULT run(DISPID id, const Arguments& arguments, VARIANT_BOOL* changed);
  ConnectionPoint* pointFor(REFIID iid) noexcept;

  Identity identity_{*this};
  IUnknown* outer_;  // not counted: it owns this control, or is identity_
  std::shared_ptr<Application> application_;
  ComPtr<IOleClientSite> site_;
  InPlace inPlace_;
  ConnectionPoint events_{*this, __uuidof(__vmgrEdit)};  // nothing is ever sent there
  ConnectionPoint propertyNotifications_{*this, IID_IPropertyNotifySink};
  ComPtr<IOleAdviseHolder> advises_;
  ComPtr<IAdviseSink> viewSink_;
  DWORD viewAspects_ = 0, viewFlags_ = 0;
  bool dirty_ = false;
  vmgrEdit* core_;
  ObjectRef coreOwner_;  // last: the core lets go of the host's objects while all else still stands
};

}  // namespace vmgv

// Whatever is passed, there is a result and no crash.
#include <gtest/gtest.h>

#include "tests/control/container.h"

namespace vmgv::test {
namespace {

// A null pointer; 1 for a number, which is content as an aspect and true as a switch.
template <class Parameter>
constexpr auto nothing() {
  using Plain = std::remove_cvref_t<Parameter>;
  if constexpr (std::is_integral_v<Plain>) {
    return static_cast<Plain>(1);
  } else {
    return Plain{};
  }
}

template <class Interface, class... Parameters>
HRESULT callWithNothing(IUnknown& object, HRESULT (STDMETHODCALLTYPE Interface::*method)(Parameters...)) {
  const auto face = ComPtr<IUnknown>(&object).as<Interface>();
  return face ? (face.get()->*method)(nothing<Parameters>()...) : S_OK;
}

template <class... Methods>
void expectRefused(IUnknown& object, Methods... methods) {
  int index = 0;
  for (const HRESULT result : {callWithNothing(object, methods)...}) {
    EXPECT_TRUE(FAILED(result)) << "method " << index;
    ++index;
  }
}

TEST(BadCalls, NullPointersAreRefused) {
  const auto edit = makeControl();
  expectRefused(*edit, &_vmgrEdit::get_CurrentCatalog, &_vmgrEdit::get_CurrentView, &_vmgrEdit::get_Grid,
                &_vmgrEdit::get_Font, &_vmgrEdit::get_excelVisible, &_vmgrEdit::ShowSummary,
                &_vmgrEdit::ShowSort, &_vmgrEdit::ShowOther, &_vmgrEdit::ShowItems, &_vmgrEdit::ShowGroups,
                &_vmgrEdit::ShowExcel, &_vmgrEdit::ShowFormat, &_vmgrEdit::ShowGeneral,
                &_vmgrEdit::ShowPreview, &_vmgrEdit::ShowPreviewX);
  expectRefused(*edit, &IDispatch::GetTypeInfoCount, &IDispatch::GetIDsOfNames);
  expectRefused(*edit, &IOleObject::GetClientSite, &IOleObject::GetMoniker, &IOleObject::GetClipboardData,
                &IOleObject::InitFromData, &IOleObject::EnumVerbs, &IOleObject::GetUserClassID,
                &IOleObject::GetUserType, &IOleObject::SetExtent, &IOleObject::GetExtent, &IOleObject::Advise,
                &IOleObject::Unadvise, &IOleObject::EnumAdvise, &IOleObject::GetMiscStatus,
                &IOleObject::SetColorScheme);
  expectRefused(*edit, &IOleInPlaceObject::GetWindow, &IOleInPlaceObject::SetObjectRects);
  expectRefused(*edit, &IOleInPlaceActiveObject::GetWindow, &IOleControl::GetControlInfo);
  expectRefused(*edit, &IPersistStreamInit::GetClassID, &IPersistStreamInit::Load, &IPersistStreamInit::Save,
                &IPersistStreamInit::GetSizeMax, &IPersistPropertyBag::Load, &IPersistPropertyBag::Save);
  expectRefused(*edit, &IPersistStorage::InitNew, &IPersistStorage::Load, &IPersistStorage::Save);
  expectRefused(*edit, &IQuickActivate::QuickActivate, &IQuickActivate::SetContentExtent,
                &IQuickActivate::GetContentExtent);
  expectRefused(*edit, &IConnectionPointContainer::EnumConnectionPoints,
                &IConnectionPointContainer::FindConnectionPoint);
  expectRefused(*edit, &IProvideClassInfo2::GetClassInfo, &IProvideClassInfo2::GetGUID);

  const auto view = edit.as<IViewObject2>();
  const auto point = notificationsOf(*edit);
  ComPtr<IEnumConnectionPoints> points;
  edit.as<IConnectionPointContainer>()->EnumConnectionPoints(points.put());
  expectRefused(*points, &IEnumConnectionPoints::Next, &IEnumConnectionPoints::Clone);
  expectRefused(*point, &IConnectionPoint::GetConnectionInterface, &IConnectionPoint::Advise,
                &IConnectionPoint::GetConnectionPointContainer, &IConnectionPoint::EnumConnections);
  expectRefused(*controlFactory(), &IClassFactory::CreateInstance);
  const HRESULT others[] = {
      controlLibrary().classObject(__uuidof(::vmgrEdit), IID_IUnknown, nullptr),
      edit->QueryInterface(IID_IUnknown, nullptr),
      edit->GetTypeInfo(0, 0, nullptr),
      edit->Invoke(0x60030007, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr),
      edit.as<IOleObject>()->DoVerb(OLEIVERB_SHOW, nullptr, nullptr, 0, nullptr, nullptr),
      view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, 0),
      view->GetColorSet(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr),
      view->GetExtent(DVASPECT_CONTENT, -1, nullptr, nullptr),
      point->QueryInterface(IID_IUnknown, nullptr)};
  for (const HRESULT& result : others) EXPECT_TRUE(FAILED(result)) << &result - others;
}

// Every number from within and around the members' ranges, with every type of argument, and 0 to 4 of them.
TEST(BadCalls, EveryShapeOfInvokeEndsWithAResult) {
  const auto edit = makeControl();
  const ClosesDialogs user;
  const auto call = [&](DISPID id, WORD flags, DISPPARAMS params) {
    Variant result;
    EXCEPINFO exception{};
    UINT faulty = 0;
    edit->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &params, &result, &exception, &faulty);
    EXPECT_LE(faulty, params.cArgs);
  };
  const auto callEveryWay = [&](DISPID id, VARTYPE type) {
    DISPID put = DISPID_PROPERTYPUT;
    VARIANT args[4]{};  // zeros: null strings, null objects
    for (VARIANT& arg : args) arg.vt = type;
    const bool isDialog = id >= 0x60030000 && id < 0x60040000;
    for (UINT count = isDialog ? 1 : 0; count <= 4; ++count) {  // a dialog without arguments is a right call
      for (const WORD flags :
           {DISPATCH_METHOD, DISPATCH_PROPERTYGET, DISPATCH_PROPERTYPUT, DISPATCH_PROPERTYPUTREF}) {
        call(id, flags, {args, &put, count, count ? 1U : 0U});
        call(id, flags, {args, nullptr, count, 0});
      }
    }
    call(id, DISPATCH_PROPERTYPUT, {nullptr, nullptr, 2, 0});
    call(id, DISPATCH_PROPERTYPUT, {args, nullptr, 2, 1});
    call(id, DISPATCH_PROPERTYPUT, {args, nullptr, 0, 3});
  };
  for (const DISPID base : {0x60030000, 0x68030000, -10}) {
    for (DISPID id = base; id < base + 0x18; ++id) {
      for (VARTYPE type = VT_EMPTY; type <= VT_CLSID; ++type) {
        if (type != VT_VARIANT && (type <= VT_UINT || type >= VT_RECORD)) callEveryWay(id, type);
      }
    }
  }
}

}  // namespace
}  // namespace vmgv::test

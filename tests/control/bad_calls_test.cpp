// Whatever is passed, there is a result and no crash.
#include <gtest/gtest.h>

#include <functional>

#include "tests/control/container.h"

namespace vmgv::test {
namespace {

TEST(BadCalls, NullPointersAreRefused) {
  const auto edit = makeControl();
  const auto object = edit.as<IOleObject>();
  const auto place = edit.as<IOleInPlaceObject>();
  const auto active = edit.as<IOleInPlaceActiveObject>();
  const auto ole = edit.as<IOleControl>();
  const auto view = edit.as<IViewObject2>();
  const auto stream = edit.as<IPersistStreamInit>();
  const auto storage = edit.as<IPersistStorage>();
  const auto bag = edit.as<IPersistPropertyBag>();
  const auto quick = edit.as<IQuickActivate>();
  const auto points = edit.as<IConnectionPointContainer>();
  const auto info = edit.as<IProvideClassInfo2>();
  const auto factory = controlLibrary().factory(__uuidof(::vmgrEdit));
  ComPtr<IConnectionPoint> point;
  points->FindConnectionPoint(IID_IPropertyNotifySink, point.put());
  ComPtr<IEnumConnectionPoints> enumerator;
  points->EnumConnectionPoints(enumerator.put());
  const std::function<HRESULT()> calls[] = {
      [&] { return controlLibrary().classObject(__uuidof(::vmgrEdit), IID_IUnknown, nullptr); },
      [&] { return factory->CreateInstance(nullptr, IID_IUnknown, nullptr); },
      [&] { return edit->QueryInterface(IID_IUnknown, nullptr); },
      [&] { return point->QueryInterface(IID_IUnknown, nullptr); },
      [&] { return edit->get_CurrentCatalog(nullptr); },
      [&] { return edit->get_CurrentView(nullptr); },
      [&] { return edit->get_Grid(nullptr); },
      [&] { return edit->get_Font(nullptr); },
      [&] { return edit->get_excelVisible(nullptr); },
      [&] { return edit->ShowSummary(nullptr); },
      [&] { return edit->ShowSort(nullptr); },
      [&] { return edit->ShowOther(nullptr); },
      [&] { return edit->ShowItems(nullptr); },
      [&] { return edit->ShowGroups(nullptr); },
      [&] { return edit->ShowExcel(nullptr); },
      [&] { return edit->ShowFormat(nullptr); },
      [&] { return edit->ShowGeneral(nullptr); },
      [&] { return edit->ShowPreview(nullptr, nullptr, nullptr); },
      [&] { return edit->ShowPreviewX(nullptr, 0, 0, nullptr); },
      [&] { return edit->GetTypeInfoCount(nullptr); },
      [&] { return edit->GetTypeInfo(0, 0, nullptr); },
      [&] { return edit->GetIDsOfNames(IID_NULL, nullptr, 1, 0, nullptr); },
      [&] {
        return edit->Invoke(0x60030007, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr);
      },
      [&] { return object->GetClientSite(nullptr); },
      [&] { return object->GetMoniker(0, 0, nullptr); },
      [&] { return object->GetClipboardData(0, nullptr); },
      [&] { return object->InitFromData(nullptr, FALSE, 0); },
      [&] { return object->DoVerb(OLEIVERB_SHOW, nullptr, nullptr, 0, nullptr, nullptr); },
      [&] { return object->EnumVerbs(nullptr); },
      [&] { return object->GetUserClassID(nullptr); },
      [&] { return object->GetUserType(0, nullptr); },
      [&] { return object->SetExtent(DVASPECT_CONTENT, nullptr); },
      [&] { return object->GetExtent(DVASPECT_CONTENT, nullptr); },
      [&] { return object->Advise(nullptr, nullptr); },
      [&] { return object->Unadvise(99); },
      [&] { return object->EnumAdvise(nullptr); },
      [&] { return object->GetMiscStatus(DVASPECT_CONTENT, nullptr); },
      [&] { return object->SetColorScheme(nullptr); },
      [&] { return ole->GetControlInfo(nullptr); },
      [&] { return place->GetWindow(nullptr); },
      [&] { return place->SetObjectRects(nullptr, nullptr); },
      [&] { return active->GetWindow(nullptr); },
      [&] {
        return view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                          0);
      },
      [&] { return view->GetColorSet(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr); },
      [&] { return view->GetExtent(DVASPECT_CONTENT, -1, nullptr, nullptr); },
      [&] { return stream->GetClassID(nullptr); },
      [&] { return stream->Load(nullptr); },
      [&] { return stream->Save(nullptr, TRUE); },
      [&] { return stream->GetSizeMax(nullptr); },
      [&] { return storage->InitNew(nullptr); },
      [&] { return storage->Load(nullptr); },
      [&] { return storage->Save(nullptr, TRUE); },
      [&] { return bag->Load(nullptr, nullptr); },
      [&] { return bag->Save(nullptr, TRUE, TRUE); },
      [&] { return quick->QuickActivate(nullptr, nullptr); },
      [&] { return quick->SetContentExtent(nullptr); },
      [&] { return quick->GetContentExtent(nullptr); },
      [&] { return points->EnumConnectionPoints(nullptr); },
      [&] { return points->FindConnectionPoint(IID_IPropertyNotifySink, nullptr); },
      [&] { return point->GetConnectionInterface(nullptr); },
      [&] { return point->GetConnectionPointContainer(nullptr); },
      [&] { return point->Advise(nullptr, nullptr); },
      [&] { return point->EnumConnections(nullptr); },
      [&] { return enumerator->Next(2, nullptr, nullptr); },
      [&] { return enumerator->Clone(nullptr); },
      [&] { return info->GetClassInfo(nullptr); },
      [&] { return info->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, nullptr); },
  };
  for (const auto& call : calls) EXPECT_TRUE(FAILED(call())) << &call - calls;
}

TEST(BadCalls, OptionalPointersMayBeNull) {
  const auto edit = makeControl();
  VARIANT_BOOL changed = VARIANT_TRUE;
  const ClosesDialogs user;
  EXPECT_EQ(S_OK, edit->ShowPreview(nullptr, nullptr, &changed));
  EXPECT_EQ(S_OK, edit->ShowPreviewX(nullptr, VARIANT_FALSE, VARIANT_FALSE, &changed));
  EXPECT_EQ(S_OK, edit->putref_Grid(nullptr));
  EXPECT_EQ(S_OK, edit->put_CurrentView(nullptr));
  EXPECT_EQ(S_OK, edit.as<IOleObject>()->SetClientSite(nullptr));
  EXPECT_EQ(S_OK, edit.as<IOleObject>()->SetHostNames(nullptr, nullptr));
  EXPECT_EQ(S_OK, edit.as<IOleInPlaceObject>()->InPlaceDeactivate());
  EXPECT_EQ(S_OK, edit.as<IOleObject>()->Close(OLECLOSE_SAVEIFDIRTY));
  EXPECT_EQ(S_OK, edit.as<IPersistStorage>()->HandsOffStorage());
}

// Every number from within and around the members' ranges, with every type of argument, and 0 to 4 of them.
TEST(BadCalls, EveryShapeOfInvokeEndsWithAResult) {
  const auto edit = makeControl();
  const ClosesDialogs user;
  const auto calls = [&](DISPID id, WORD flags, DISPPARAMS params) {
    VARIANT result;
    VariantInit(&result);
    EXCEPINFO exception{};
    UINT faulty = 0;
    edit->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &params, &result, &exception, &faulty);
    EXPECT_EQ(S_OK, VariantClear(&result));
    EXPECT_LE(faulty, params.cArgs);
    return 1;
  };
  int made = 0;
  const auto isDialog = [](DISPID id) { return id >= 0x60030000 && id < 0x60040000; };
  for (const DISPID base : {0x60030000, 0x68030000, -10}) {
    for (DISPID id = base; id < base + 0x18; ++id) {
      for (VARTYPE type = VT_EMPTY; type <= VT_CLSID; ++type) {
        if (type == VT_VARIANT || (type > VT_UINT && type < VT_RECORD)) continue;
        VARIANT args[4]{};  // zeros: null strings, null objects
        for (VARIANT& arg : args) arg.vt = type;
        for (UINT count = 0; count <= 4; ++count) {
          if (isDialog(id) && count == 0) continue;  // a right call, elsewhere
          DISPID put = DISPID_PROPERTYPUT;
          for (const WORD flags :
               {DISPATCH_METHOD, DISPATCH_PROPERTYGET, DISPATCH_PROPERTYPUT, DISPATCH_PROPERTYPUTREF}) {
            if (isDialog(id) && flags == DISPATCH_METHOD && count > 3) continue;
            made += calls(id, flags, {args, &put, count, count ? 1U : 0U});
            made += calls(id, flags, {args, nullptr, count, 0});
          }
        }
        made += calls(id, DISPATCH_PROPERTYPUT, {nullptr, nullptr, 2, 0});
        made += calls(id, DISPATCH_PROPERTYPUT, {args, nullptr, 2, 1});
        made += calls(id, DISPATCH_PROPERTYPUT, {args, nullptr, 0, 3});
      }
    }
  }
  EXPECT_GT(made, 10000);
}

TEST(BadCalls, HugeTextsPassThroughWhole) {
  const auto edit = makeControl();
  std::wstring huge(20'000'000, L'Ω');
  huge[100] = L'\0';
  const BString text(huge);
  EXPECT_EQ(S_OK, edit->put_CurrentView(text.get()));
  BString view;
  EXPECT_EQ(S_OK, edit->get_CurrentView(view.put()));
  EXPECT_TRUE(view.view() == huge);
  wchar_t* names[] = {huge.data() + 101};
  DISPID id = 0;
  EXPECT_EQ(DISP_E_UNKNOWNNAME, edit->GetIDsOfNames(IID_NULL, names, 1, 0, &id));
  VARIANT_BOOL changed = VARIANT_TRUE;
  const ClosesDialogs user;
  EXPECT_EQ(S_OK, edit->ShowPreviewX(text.get(), VARIANT_FALSE, VARIANT_FALSE, &changed));
}

}  // namespace
}  // namespace vmgv::test

// What the control says of itself: its type library, class, events and identity.
#include <gtest/gtest.h>

#include "tests/control/container.h"

namespace vmgv::test {
namespace {

ComPtr<ITypeInfo> typeInfo(REFGUID id) {
  ComPtr<ITypeLib> library;
  EXPECT_EQ(S_OK, LoadTypeLibEx(controlLibrary().path().c_str(), REGKIND_NONE, library.put()));
  ComPtr<ITypeInfo> info;
  EXPECT_EQ(S_OK, library->GetTypeInfoOfGuid(id, info.put()));
  return info;
}

// "VT_DISPATCH", with "*" for each pointer and the name of a type that the library refers to.
std::string typeName(ITypeInfo& info, const TYPEDESC& type) {
  switch (type.vt) {
    case VT_PTR: return typeName(info, *type.lptdesc) + "*";
    case VT_BSTR: return "String";
    case VT_BOOL: return "Boolean";
    case VT_DISPATCH: return "Object";
    case VT_VOID: return "void";
    case VT_HRESULT: return "HRESULT";
    case VT_USERDEFINED: {
      ComPtr<ITypeInfo> referred;
      BString name;
      info.GetRefTypeInfo(type.hreftype, referred.put());
      referred->GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr);
      return narrow(name.view());
    }
    default: return std::to_string(type.vt);
  }
}

// One slot: "60030006 method ShowSort() Boolean", parameters as "[optional] name type".
std::string slot(ITypeInfo& info, UINT index) {
  FUNCDESC* function = nullptr;
  if (FAILED(info.GetFuncDesc(index, &function))) return "no such slot";
  BSTR names[5]{};
  UINT count = 0;
  info.GetNames(function->memid, names, 5, &count);
  char id[9];
  std::snprintf(id, sizeof(id), "%08lX", function->memid);
  const char* kind = function->invkind == INVOKE_PROPERTYGET      ? "get"
                     : function->invkind == INVOKE_PROPERTYPUT    ? "let"
                     : function->invkind == INVOKE_PROPERTYPUTREF ? "set"
                                                                  : "method";
  std::string text = std::string(id) + " " + kind + " " + narrow(BString::view(names[0])) + "(",
              result = "void";
  for (SHORT i = 0; i < function->cParams; ++i) {
    const ELEMDESC& parameter = function->lprgelemdescParam[i];
    const USHORT flags = parameter.paramdesc.wParamFlags;
    std::string type = typeName(info, parameter.tdesc);
    if (flags & PARAMFLAG_FRETVAL) {
      type.pop_back();
      result = type;
      continue;
    }
    if (i > 0) text += ", ";
    if (flags & PARAMFLAG_FOPT) text += "optional ";
    if (flags & PARAMFLAG_FHASDEFAULT) text += "default ";
    if (flags & PARAMFLAG_FOUT) text += "out ";
    if (function->invkind == INVOKE_FUNC) text += narrow(BString::view(names[i + 1])) + " ";
    text += type;
  }
  for (BSTR name : names) SysFreeString(name);
  info.ReleaseFuncDesc(function);
  return text + ") " + result;
}

TEST(TypeLibrary, MembersStandAsHostsWereBuiltWithThem) {
  constexpr const char* kSlots[] = {
      "68030002 get CurrentCatalog() Object",
      "68030002 set CurrentCatalog(Object) void",
      "68030001 get CurrentView() String",
      "68030001 let CurrentView(String) void",
      "68030000 set Grid(Object) void",
      "68030000 get Grid() Object",
      "60030005 method ShowSummary() Boolean",
      "60030006 method ShowSort() Boolean",
      "60030007 method ShowOther() Boolean",
      "60030008 method ShowItems() Boolean",
      "60030009 method ShowGroups() Boolean",
      "6003000A method ShowExcel() Boolean",
      "6003000B method ShowFormat() Boolean",
      "6803000C get Font() IFontDisp*",
      "6803000C set Font(IFontDisp*) void",
      "6003000F method ShowPreview(optional out header String*, optional out LLToolbar Boolean*) Boolean",
      "60030012 method ShowPreviewX(optional header String, optional LLToolbar Boolean, optional "
      "onlySelected "
      "Boolean) Boolean",
      "60030015 method ShowGeneral() Boolean",
      "68030016 get excelVisible() Boolean",
      "68030016 let excelVisible(Boolean) void"};
  // The dual interface seen as a vtable: without the members of IDispatch that its other face lists.
  const auto dispatch = typeInfo(__uuidof(_vmgrEdit));
  HREFTYPE reference = 0;
  ASSERT_EQ(S_OK, dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference));
  ComPtr<ITypeInfo> vtable;
  ASSERT_EQ(S_OK, dispatch->GetRefTypeInfo(reference, vtable.put()));
  for (UINT i = 0; i < std::size(kSlots); ++i) {
    EXPECT_EQ(kSlots[i], slot(*vtable, i));
    FUNCDESC* function = nullptr;
    ASSERT_EQ(S_OK, vtable->GetFuncDesc(i, &function));
    EXPECT_EQ(static_cast<SHORT>((7 + i) * sizeof(void*)), function->oVft);  // IDispatch has 7 slots
    vtable->ReleaseFuncDesc(function);
  }
  EXPECT_EQ("no such slot", slot(*vtable, std::size(kSlots)));
}

TEST(TypeLibrary, TheClassHasOneInterfaceAndEventsWithoutMembers) {
  ComPtr<ITypeInfo> info;
  ASSERT_EQ(S_OK, makeControl().as<IProvideClassInfo2>()->GetClassInfo(info.put()));
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(S_OK, info->GetTypeAttr(&attributes));
  EXPECT_EQ(TKIND_COCLASS, attributes->typekind);
  EXPECT_TRUE(attributes->wTypeFlags & TYPEFLAG_FCONTROL);
  EXPECT_TRUE(attributes->guid == __uuidof(::vmgrEdit));
  const WORD interfaces = attributes->cImplTypes;
  info->ReleaseTypeAttr(attributes);
  ASSERT_EQ(2, interfaces);
  const std::pair<GUID, INT> expected[] = {
      {__uuidof(_vmgrEdit), IMPLTYPEFLAG_FDEFAULT},
      {__uuidof(__vmgrEdit), IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE}};
  for (UINT i = 0; i < interfaces; ++i) {
    HREFTYPE reference = 0;
    INT flags = 0;
    ComPtr<ITypeInfo> one;
    info->GetImplTypeFlags(i, &flags);
    info->GetRefTypeOfImplType(i, &reference);
    ASSERT_EQ(S_OK, info->GetRefTypeInfo(reference, one.put()));
    ASSERT_EQ(S_OK, one->GetTypeAttr(&attributes));
    EXPECT_TRUE(attributes->guid == expected[i].first) << i;
    EXPECT_EQ(expected[i].second, flags) << i;
    if (i == 1) {
      EXPECT_EQ(0, attributes->cFuncs + attributes->cVars);
    }
    one->ReleaseTypeAttr(attributes);
  }
}

TEST(Class, EventsAndPropertyNotificationsCanBeConnected) {
  const auto container = makeControl().as<IConnectionPointContainer>();
  GUID events{};
  EXPECT_EQ(S_OK, container.as<IProvideClassInfo2>()->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events));
  ComPtr<IEnumConnectionPoints> points, clone;
  ASSERT_EQ(S_OK, container->EnumConnectionPoints(points.put()));
  ASSERT_EQ(S_OK, points->Clone(clone.put()));
  for (const IID& expected : {events, IID_IPropertyNotifySink}) {
    ComPtr<IConnectionPoint> point, found;
    IID outgoing{};
    ULONG fetched = 0;
    ASSERT_EQ(S_OK, points->Next(1, point.put(), &fetched));
    EXPECT_EQ(S_OK, point->GetConnectionInterface(&outgoing));
    EXPECT_TRUE(outgoing == expected);
    EXPECT_EQ(S_OK, container->FindConnectionPoint(expected, found.put()));
    EXPECT_EQ(point, found);
    ComPtr<IConnectionPointContainer> owner;
    EXPECT_EQ(S_OK, point->GetConnectionPointContainer(owner.put()));
    EXPECT_EQ(container, owner);
  }
  IConnectionPoint* three[3]{};
  ULONG fetched = 9;
  EXPECT_EQ(S_FALSE, points->Next(1, three, &fetched));
  EXPECT_EQ(S_FALSE, clone->Next(3, three, &fetched));
  ASSERT_EQ(2U, fetched);
  three[0]->Release();

  const ComPtr<IConnectionPoint> notifications = ComPtr<IConnectionPoint>::adopt(three[1]);
  const auto sink = makeComObject<Container>();
  auto* const offered = static_cast<IPropertyNotifySink*>(sink.get());
  DWORD first = 0, second = 0;
  EXPECT_EQ(S_OK, notifications->Advise(offered, &first));
  EXPECT_EQ(S_OK, notifications->Advise(offered, &second));
  EXPECT_NE(first, second);
  EXPECT_EQ(S_OK, notifications->Unadvise(first));
  ComPtr<IEnumConnections> connections;
  ASSERT_EQ(S_OK, notifications->EnumConnections(connections.put()));
  CONNECTDATA data{};
  ASSERT_EQ(S_OK, connections->Next(1, &data, nullptr));
  EXPECT_EQ(second, data.dwCookie);
  data.pUnk->Release();
  EXPECT_EQ(S_OK, notifications->Unadvise(second));
  const auto bag = makeComObject<Bag>();
  EXPECT_EQ(CONNECT_E_CANNOTCONNECT, notifications->Advise(bag.get(), &first));  // it cannot be told anything
}

// A designer's extender: one object to its clients, made of two.
class Extender final : public ComObject<IPropertyBag> {
 public:
  ComPtr<IUnknown> inner;
  HRESULT STDMETHODCALLTYPE Read(LPCOLESTR, VARIANT*, IErrorLog*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Write(LPCOLESTR, VARIANT*) override { return E_NOTIMPL; }

 protected:
  void* otherInterface(REFIID iid) noexcept override {
    void* found = nullptr;
    if (inner && SUCCEEDED(inner->QueryInterface(iid, &found))) static_cast<IUnknown*>(found)->Release();
    return found;
  }
};

TEST(Class, CanBePartOfAnExtender) {
  const auto factory = controlLibrary().factory(__uuidof(::vmgrEdit));
  const auto extender = makeComObject<Extender>();
  ComPtr<_vmgrEdit> refused;
  EXPECT_EQ(CLASS_E_NOAGGREGATION,
            factory->CreateInstance(extender.get(), __uuidof(_vmgrEdit), refused.putVoid()));
  ASSERT_EQ(S_OK, factory->CreateInstance(extender.get(), IID_IUnknown, extender->inner.putVoid()));
  const auto edit = extender.as<_vmgrEdit>();
  ASSERT_TRUE(edit);
  EXPECT_EQ(extender.as<IUnknown>(), edit.as<IUnknown>());
  EXPECT_TRUE(edit.as<IPropertyBag>());
  EXPECT_NE(extender->inner, edit.as<IUnknown>());
  VARIANT_BOOL changed = VARIANT_TRUE;
  EXPECT_EQ(S_OK, edit->ShowOther(&changed));
}

TEST(Class, LocksKeepTheLibraryLoaded) {
  auto factory = controlLibrary().factory(__uuidof(::vmgrEdit));
  EXPECT_EQ(S_FALSE, controlLibrary().canUnload());
  EXPECT_EQ(S_OK, factory->LockServer(TRUE));
  factory = nullptr;
  EXPECT_EQ(S_FALSE, controlLibrary().canUnload());
  factory = controlLibrary().factory(__uuidof(::vmgrEdit));
  EXPECT_EQ(S_OK, factory->LockServer(FALSE));
  factory = nullptr;
  EXPECT_EQ(S_OK, controlLibrary().canUnload());
  void* out = &factory;
  EXPECT_EQ(CLASS_E_CLASSNOTAVAILABLE, controlLibrary().classObject(CLSID_StdFont, IID_IUnknown, &out));
  EXPECT_EQ(nullptr, out);
}

}  // namespace
}  // namespace vmgv::test

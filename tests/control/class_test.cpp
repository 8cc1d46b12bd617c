// What the control says of itself: its type library, events and identity.
#include <gtest/gtest.h>

#include "tests/control/container.h"

namespace vmgv::test {
namespace {

// "Object", with "*" for each pointer.
std::string typeName(ITypeInfo& info, const TYPEDESC& type) {
  static const std::map<VARTYPE, const char*> kSimple = {
      {VT_BSTR, "String"}, {VT_BOOL, "Boolean"}, {VT_DISPATCH, "Object"}};
  if (type.vt == VT_PTR) return typeName(info, *type.lptdesc) + "*";
  if (kSimple.contains(type.vt)) return kSimple.at(type.vt);
  ComPtr<ITypeInfo> referred;
  BString name;
  if (type.vt != VT_USERDEFINED || FAILED(info.GetRefTypeInfo(type.hreftype, referred.put()))) return "?";
  referred->GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr);
  return narrow(name.view());
}

// "7 60030006 method ShowSort() Boolean": the slot, and parameters as "[optional] name type".
std::string member(ITypeInfo& info, UINT index) {
  FUNCDESC* function = nullptr;
  if (FAILED(info.GetFuncDesc(index, &function))) return "no more";
  const bool method = function->invkind == INVOKE_FUNC;
  BSTR names[5]{};
  UINT count = 0;
  info.GetNames(function->memid, names, 5, &count);
  char id[30];
  std::snprintf(id, sizeof(id), "%d %08lX ", static_cast<int>(function->oVft / sizeof(void*)),
                function->memid);
  const char* const kinds[] = {"", "method ", "get ", "", "let ", "", "", "", "set "};
  std::string text = id + std::string(kinds[function->invkind]) + narrow(BString::view(names[0])) + "(";
  std::string result;
  for (SHORT i = 0; i < function->cParams; ++i) {
    const ELEMDESC& parameter = function->lprgelemdescParam[i];
    const USHORT flags = parameter.paramdesc.wParamFlags;
    const std::string type = typeName(info, parameter.tdesc);
    if (flags & PARAMFLAG_FRETVAL) {
      result = " " + type.substr(0, type.size() - 1);
      continue;
    }
    if (i > 0) text += ", ";
    if (flags & PARAMFLAG_FOPT) text += "optional ";
    if (flags & PARAMFLAG_FHASDEFAULT) text += "default ";
    if (flags & PARAMFLAG_FOUT) text += "out ";
    if (method) text += narrow(BString::view(names[i + 1])) + " ";
    text += type;
  }
  for (BSTR name : names) SysFreeString(name);
  info.ReleaseFuncDesc(function);
  return text + ")" + result;
}

TEST(TypeLibrary, MembersStandAsHostsWereBuiltWithThem) {
  constexpr const char* kMembers[] = {
      // IDispatch has the first 7 slots
      "7 68030002 get CurrentCatalog() Object",
      "8 68030002 set CurrentCatalog(Object)",
      "9 68030001 get CurrentView() String",
      "10 68030001 let CurrentView(String)",
      "11 68030000 set Grid(Object)",
      "12 68030000 get Grid() Object",
      "13 60030005 method ShowSummary() Boolean",
      "14 60030006 method ShowSort() Boolean",
      "15 60030007 method ShowOther() Boolean",
      "16 60030008 method ShowItems() Boolean",
      "17 60030009 method ShowGroups() Boolean",
      "18 6003000A method ShowExcel() Boolean",
      "19 6003000B method ShowFormat() Boolean",
      "20 6803000C get Font() IFontDisp*",
      "21 6803000C set Font(IFontDisp*)",
      "22 6003000F method ShowPreview(optional out header String*, optional out LLToolbar Boolean*) Boolean",
      "23 60030012 method ShowPreviewX(optional header String, optional LLToolbar Boolean, "
      "optional onlySelected Boolean) Boolean",
      "24 60030015 method ShowGeneral() Boolean",
      "25 68030016 get excelVisible() Boolean",
      "26 68030016 let excelVisible(Boolean)",
      "no more"};
  ComPtr<ITypeLib> library;
  ComPtr<ITypeInfo> dispatch, vtable;
  ASSERT_EQ(S_OK, LoadTypeLibEx(controlLibrary().path.c_str(), REGKIND_NONE, library.put()));
  ASSERT_EQ(S_OK, library->GetTypeInfoOfGuid(__uuidof(_vmgrEdit), dispatch.put()));
  // The dual interface seen as a vtable: without the members of IDispatch that its other face lists.
  HREFTYPE reference = 0;
  ASSERT_EQ(S_OK, dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference));
  ASSERT_EQ(S_OK, dispatch->GetRefTypeInfo(reference, vtable.put()));
  for (UINT i = 0; i < std::size(kMembers); ++i) EXPECT_EQ(kMembers[i], member(*vtable, i));
}

TEST(Class, EventsAndPropertyNotificationsCanBeConnected) {
  const auto edit = makeControl();
  ComPtr<IEnumConnectionPoints> points;
  ComPtr<IConnectionPoint> point, found;
  ASSERT_EQ(S_OK, edit.as<IConnectionPointContainer>()->EnumConnectionPoints(points.put()));
  for (const IID& expected : {__uuidof(__vmgrEdit), IID_IPropertyNotifySink}) {
    IID outgoing{};
    ASSERT_EQ(S_OK, points->Next(1, point.put(), nullptr));
    EXPECT_EQ(S_OK, point->GetConnectionInterface(&outgoing));
    EXPECT_TRUE(outgoing == expected);
    EXPECT_EQ(S_OK, edit.as<IConnectionPointContainer>()->FindConnectionPoint(expected, found.put()));
    EXPECT_EQ(point, found);
  }
  EXPECT_EQ(S_FALSE, points->Next(1, found.put(), nullptr));

  const auto sink = makeComObject<Container>();
  DWORD first = 0, second = 0;
  EXPECT_EQ(S_OK, point->Advise(static_cast<IPropertyNotifySink*>(sink.get()), &first));
  EXPECT_EQ(S_OK, point->Advise(static_cast<IPropertyNotifySink*>(sink.get()), &second));
  EXPECT_EQ(S_OK, point->Unadvise(first));
  edit->putref_Font(makeFont(L"DejaVu Sans", 15).get());
  EXPECT_EQ(std::vector<DISPID>{0x6803000C}, sink->changes);
  EXPECT_EQ(S_OK, point->Unadvise(second));
  EXPECT_EQ(CONNECT_E_NOCONNECTION, point->Unadvise(second));
  const auto bag = makeComObject<Bag>();
  EXPECT_EQ(CONNECT_E_CANNOTCONNECT, point->Advise(bag.get(), &first));  // it cannot be told anything
}

// A designer's extender shows itself and the control as one object.
TEST(Class, CanBePartOfAnExtender) {
  const auto extender = makeComObject<Bag>();
  ComPtr<IUnknown> inner, refused;
  EXPECT_EQ(CLASS_E_NOAGGREGATION,
            controlFactory()->CreateInstance(extender.get(), __uuidof(_vmgrEdit), refused.putVoid()));
  ASSERT_EQ(S_OK, controlFactory()->CreateInstance(extender.get(), IID_IUnknown, inner.putVoid()));
  const auto edit = inner.as<_vmgrEdit>();
  ASSERT_TRUE(edit);
  EXPECT_EQ(extender.as<IUnknown>(), edit.as<IUnknown>());
  EXPECT_TRUE(edit.as<IPropertyBag>());
}

TEST(Class, LocksKeepTheLibraryLoaded) {
  EXPECT_EQ(S_OK, controlLibrary().canUnload());
  EXPECT_EQ(S_OK, controlFactory()->LockServer(TRUE));
  EXPECT_EQ(S_FALSE, controlLibrary().canUnload());
  EXPECT_EQ(S_OK, controlFactory()->LockServer(FALSE));
  EXPECT_EQ(S_OK, controlLibrary().canUnload());
  void* out = &out;
  EXPECT_EQ(CLASS_E_CLASSNOTAVAILABLE, controlLibrary().classObject(CLSID_StdFont, IID_IUnknown, &out));
  EXPECT_EQ(nullptr, out);
}

}  // namespace
}  // namespace vmgv::test

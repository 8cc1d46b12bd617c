// The control's members as scripts and late-bound hosts reach them.
#include <gtest/gtest.h>

#include "tests/control/container.h"

namespace vmgv::test {
namespace {

constexpr WORD kScriptGet =
    DISPATCH_METHOD | DISPATCH_PROPERTYGET;  // what scripts ask, when they cannot know

// The last argument first, as Invoke wants them.
HRESULT invoke(IDispatch& object, DISPID id, WORD flags, std::vector<VARIANT> args, VARIANT* result = nullptr,
               std::vector<DISPID> names = {}) {
  DISPPARAMS params{args.data(), names.data(), static_cast<UINT>(args.size()),
                    static_cast<UINT>(names.size())};
  return object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &params, result, nullptr, nullptr);
}
HRESULT put(IDispatch& object, const wchar_t* name, WORD flags, const VARIANT& value) {
  return invoke(object, idOf(object, name), flags, {value}, nullptr, {DISPID_PROPERTYPUT});
}

VARIANT ofType(VARTYPE type) {
  VARIANT variant;
  VariantInit(&variant);
  variant.vt = type;
  return variant;
}
VARIANT holding(IUnknown* object, VARTYPE type) {
  VARIANT variant = ofType(type);
  variant.punkVal = object;
  return variant;
}

TEST(Automation, ObjectsComeBackAsTheyWereGiven) {
  const auto control = makeControl();
  const auto host = makeComObject<Container>();  // any IDispatch
  auto* const dispatch = static_cast<IDispatch*>(host.get());
  auto* const unknown = static_cast<IOleClientSite*>(host.get());
  VARIANT byReference = ofType(VT_DISPATCH | VT_BYREF);
  IDispatch* pointer = dispatch;
  byReference.ppdispVal = &pointer;
  const struct {
    WORD flags;
    VARIANT value;
    IDispatch* kept;
  } cases[] = {{DISPATCH_PROPERTYPUTREF, holding(dispatch, VT_DISPATCH), dispatch},
               {DISPATCH_PROPERTYPUT, ofType(VT_NULL), nullptr},  // a script's null
               {DISPATCH_PROPERTYPUT, holding(dispatch, VT_DISPATCH), dispatch},
               {DISPATCH_PROPERTYPUTREF, holding(nullptr, VT_DISPATCH), nullptr},
               {DISPATCH_PROPERTYPUTREF, holding(unknown, VT_UNKNOWN), dispatch},
               {DISPATCH_PROPERTYPUTREF, ofType(VT_EMPTY), nullptr},
               {DISPATCH_PROPERTYPUTREF, byReference, dispatch}};
  for (const wchar_t* const property : {L"Grid", L"CurrentCatalog"}) {
    for (const auto& one : cases) {
      EXPECT_EQ(S_OK, put(*control.get(), property, one.flags, one.value));
      Variant got;
      EXPECT_EQ(S_OK, invoke(*control.get(), idOf(*control.get(), property), kScriptGet, {}, &got));
      EXPECT_EQ(VT_DISPATCH, got.vt);
      EXPECT_EQ(one.kept, got.pdispVal);
    }
  }
}

TEST(Automation, ValuesAreConverted) {
  const auto control = makeControl();
  VARIANT one = ofType(VT_I4), text = ofType(VT_BSTR), fraction = ofType(VT_R8);
  const BString word(L"Προβολή"), no(L"False");
  one.lVal = 1;
  text.bstrVal = word.get();
  fraction.dblVal = 2.5;
  BString view;
  EXPECT_EQ(S_OK, put(*control.get(), L"currentview", DISPATCH_PROPERTYPUT, text));
  control->get_CurrentView(view.put());
  EXPECT_EQ(word.view(), view.view());
  EXPECT_EQ(S_OK, put(*control.get(), L"CURRENTVIEW", DISPATCH_PROPERTYPUT, one));
  control->get_CurrentView(view.put());
  EXPECT_EQ(L"1", view.view());
  text.bstrVal = no.get();
  VARIANT_BOOL visible = VARIANT_TRUE;
  EXPECT_EQ(S_OK, put(*control.get(), L"excelVisible", DISPATCH_PROPERTYPUT, text));
  control->get_excelVisible(&visible);
  EXPECT_EQ(VARIANT_FALSE, visible);
  EXPECT_EQ(S_OK, put(*control.get(), L"excelVisible", DISPATCH_PROPERTYPUT, fraction));
  control->get_excelVisible(&visible);
  EXPECT_EQ(VARIANT_TRUE, visible);
}

TEST(Automation, EveryShowMethodAnswersFalse) {
  const auto control = makeControl();
  const ClosesDialogs user;
  for (const wchar_t* const name :
       {L"ShowSummary", L"ShowSort", L"ShowOther", L"ShowItems", L"ShowGroups", L"ShowExcel", L"ShowFormat",
        L"ShowPreview", L"ShowPreviewX", L"ShowGeneral"}) {
    Variant result;
    EXPECT_EQ(S_OK, invoke(*control.get(), idOf(*control.get(), name), kScriptGet, {}, &result))
        << narrow(name);
    EXPECT_EQ(VT_BOOL, result.vt);
    EXPECT_EQ(VARIANT_FALSE, result.boolVal);
    EXPECT_EQ(S_OK,
              invoke(*control.get(), idOf(*control.get(), name), DISPATCH_METHOD, {}));  // as a statement
  }
  EXPECT_GE(ClosesDialogs::closed(), 2);  // some of them do show a dialog
}

TEST(Automation, PreviewsTakeTheirArgumentsInEveryShape) {
  const auto control = makeControl();
  const DISPID preview = idOf(*control.get(), L"ShowPreviewX");
  wchar_t method[] = L"showpreviewx", last[] = L"onlyselected", middle[] = L"lltoolbar", wrong[] = L"footer";
  LPOLESTR names[] = {method, last, middle, wrong};
  DISPID ids[4]{};
  EXPECT_EQ(DISP_E_UNKNOWNNAME, control->GetIDsOfNames(IID_NULL, names, 4, 0, ids));
  EXPECT_EQ(preview, ids[0]);
  EXPECT_EQ(2, ids[1]);
  EXPECT_EQ(1, ids[2]);
  EXPECT_EQ(DISPID_UNKNOWN, ids[3]);

  VARIANT omitted = ofType(VT_ERROR), yes = ofType(VT_BOOL), text = ofType(VT_BSTR),
          array = ofType(VT_ARRAY | VT_VARIANT);
  omitted.scode = DISP_E_PARAMNOTFOUND;
  yes.boolVal = VARIANT_TRUE;
  const BString word(L"header");
  text.bstrVal = word.get();
  const struct {
    std::vector<VARIANT> args;
    std::vector<DISPID> names;
    HRESULT result;
  } cases[] = {{{}, {}, S_OK},
               {{text}, {}, S_OK},
               {{yes, omitted, text}, {}, S_OK},
               {{yes}, {2}, S_OK},
               {{yes, text}, {1}, S_OK},
               {{yes, yes, yes, text}, {}, DISP_E_BADPARAMCOUNT},
               {{yes}, {3}, DISP_E_PARAMNOTFOUND},
               {{yes, text}, {0}, DISP_E_PARAMNOTFOUND},  // given by its place already
               {{array}, {}, DISP_E_TYPEMISMATCH},
               {{text, text}, {}, DISP_E_TYPEMISMATCH}};
  for (const auto& one : cases) {
    EXPECT_EQ(one.result, invoke(*control.get(), preview, DISPATCH_METHOD, one.args, nullptr, one.names))
        << &one - cases;
  }
  UINT faulty = 99;
  VARIANT args[] = {text, yes};  // LLToolbar, header
  DISPPARAMS params{args, nullptr, 2, 0};
  EXPECT_EQ(DISP_E_TYPEMISMATCH,
            control->Invoke(preview, IID_NULL, 0, DISPATCH_METHOD, &params, nullptr, nullptr, &faulty));
  EXPECT_EQ(0U, faulty);
}

TEST(Automation, CallsThatFitNoMemberAreRefused) {
  const auto control = makeControl();
  VARIANT number = ofType(VT_I4), array = ofType(VT_ARRAY | VT_VARIANT);
  number.lVal = 7;
  const DISPID grid = idOf(*control.get(), L"Grid"), sort = idOf(*control.get(), L"ShowSort"),
               font = idOf(*control.get(), L"Font"), view = idOf(*control.get(), L"CurrentView");
  const auto host = makeComObject<Container>();
  const struct {
    DISPID id;
    WORD flags;
    std::vector<VARIANT> args;
    HRESULT result;
  } cases[] = {{DISPID_VALUE, kScriptGet, {}, DISP_E_MEMBERNOTFOUND},
               {0x68030017, kScriptGet, {}, DISP_E_MEMBERNOTFOUND},
               {sort, DISPATCH_PROPERTYGET, {}, DISP_E_MEMBERNOTFOUND},
               {sort, DISPATCH_PROPERTYPUT, {number}, DISP_E_MEMBERNOTFOUND},
               {sort, DISPATCH_METHOD, {number}, DISP_E_BADPARAMCOUNT},
               {grid, DISPATCH_PROPERTYGET, {number}, DISP_E_BADPARAMCOUNT},
               {grid, DISPATCH_PROPERTYPUTREF, {number}, DISP_E_TYPEMISMATCH},
               {grid, DISPATCH_PROPERTYPUTREF, {}, DISP_E_BADPARAMCOUNT},
               {font,
                DISPATCH_PROPERTYPUTREF,
                {holding(static_cast<IDispatch*>(host.get()), VT_DISPATCH)},
                DISP_E_TYPEMISMATCH},
               {view, DISPATCH_PROPERTYPUTREF, {number}, DISP_E_MEMBERNOTFOUND},
               {view, DISPATCH_PROPERTYPUT, {array}, DISP_E_TYPEMISMATCH}};
  for (const auto& one : cases) {
    Variant result;
    EXPECT_EQ(one.result, invoke(*control.get(), one.id, one.flags, one.args, &result)) << &one - cases;
  }
}

}  // namespace
}  // namespace vmgv::test

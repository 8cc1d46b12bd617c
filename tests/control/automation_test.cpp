// The control's members as late-bound hosts call them.
#include <gtest/gtest.h>

#include "tests/control/container.h"

namespace vmgv::test {
namespace {

constexpr DISPID kGrid = 0x68030000, kView = 0x68030001, kCatalog = 0x68030002, kFont = 0x6803000C,
                 kSort = 0x60030006, kPreviewX = 0x60030012;
// What scripts ask, when they cannot know.
constexpr WORD kScriptGet = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

// The last argument first, as Invoke wants them.
HRESULT invoke(IDispatch& object, DISPID id, WORD flags, std::vector<VARIANT> args,
               std::vector<DISPID> names = {}, VARIANT* result = nullptr) {
  DISPPARAMS params{args.data(), names.data(), static_cast<UINT>(args.size()),
                    static_cast<UINT>(names.size())};
  return object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &params, result, nullptr, nullptr);
}

VARIANT ofType(VARTYPE type, void* content = nullptr) {
  VARIANT variant{};
  variant.vt = type;
  variant.byref = content;
  return variant;
}

TEST(Automation, ArgumentsHaveNamesInAnyCase) {
  wchar_t method[] = L"showpreviewx", last[] = L"onlyselected", middle[] = L"lltoolbar", wrong[] = L"footer";
  LPOLESTR names[] = {method, last, middle, wrong};
  std::vector<DISPID> ids(4);
  EXPECT_EQ(DISP_E_UNKNOWNNAME, makeControl()->GetIDsOfNames(IID_NULL, names, 4, 0, ids.data()));
  EXPECT_EQ((std::vector<DISPID>{kPreviewX, 2, 1, DISPID_UNKNOWN}), ids);
}

TEST(Automation, ACallFitsItsMemberOrIsRefused) {
  const auto control = makeControl();
  const auto host = makeComObject<Container>();  // any IDispatch
  auto* dispatch = static_cast<IDispatch*>(host.get());
  auto* const unknown = static_cast<IOleClientSite*>(host.get());
  const BString word(L"header");
  const VARIANT number = ofType(VT_I4), array = ofType(VT_ARRAY | VT_VARIANT), yes = ofType(VT_BOOL),
                text = ofType(VT_BSTR, word.get()), object = ofType(VT_DISPATCH, dispatch);
  VARIANT omitted = ofType(VT_ERROR);
  omitted.scode = DISP_E_PARAMNOTFOUND;
  const struct {
    DISPID id;
    WORD flags;
    std::vector<VARIANT> args;
    std::vector<DISPID> names;
    HRESULT result;
  } cases[] = {{DISPID_VALUE, kScriptGet, {}, {}, DISP_E_MEMBERNOTFOUND},
               {0x68030017, kScriptGet, {}, {}, DISP_E_MEMBERNOTFOUND},
               {kSort, DISPATCH_PROPERTYGET, {}, {}, DISP_E_MEMBERNOTFOUND},
               {kSort, DISPATCH_PROPERTYPUT, {number}, {}, DISP_E_MEMBERNOTFOUND},
               {kSort, DISPATCH_METHOD, {number}, {}, DISP_E_BADPARAMCOUNT},
               {kGrid, DISPATCH_PROPERTYGET, {number}, {}, DISP_E_BADPARAMCOUNT},
               {kGrid, DISPATCH_PROPERTYPUTREF, {number}, {}, DISP_E_TYPEMISMATCH},
               {kGrid, DISPATCH_PROPERTYPUTREF, {}, {}, DISP_E_BADPARAMCOUNT},
               {kFont, DISPATCH_PROPERTYPUTREF, {object}, {}, DISP_E_TYPEMISMATCH},
               {kView, DISPATCH_PROPERTYPUTREF, {number}, {}, DISP_E_MEMBERNOTFOUND},
               {kView, DISPATCH_PROPERTYPUT, {array}, {}, DISP_E_TYPEMISMATCH},
               {kPreviewX, kScriptGet, {}, {}, S_OK},
               {kPreviewX, kScriptGet, {text}, {}, S_OK},
               {kPreviewX, kScriptGet, {yes, omitted, text}, {}, S_OK},
               {kPreviewX, kScriptGet, {yes}, {2}, S_OK},
               {kPreviewX, kScriptGet, {yes, text}, {1}, S_OK},
               {kPreviewX, kScriptGet, {yes, yes, yes, text}, {}, DISP_E_BADPARAMCOUNT},
               {kPreviewX, kScriptGet, {yes}, {3}, DISP_E_PARAMNOTFOUND},
               {kPreviewX, kScriptGet, {yes, text}, {0}, DISP_E_PARAMNOTFOUND},  // given by its place already
               {kPreviewX, kScriptGet, {array}, {}, DISP_E_TYPEMISMATCH},
               {kPreviewX, kScriptGet, {text, text}, {}, DISP_E_TYPEMISMATCH},
               {kGrid, DISPATCH_PROPERTYPUT, {ofType(VT_NULL)}, {DISPID_PROPERTYPUT}, S_OK},
               {kGrid, DISPATCH_PROPERTYPUTREF, {ofType(VT_UNKNOWN, unknown)}, {DISPID_PROPERTYPUT}, S_OK},
               {kCatalog, DISPATCH_PROPERTYPUTREF, {ofType(VT_DISPATCH | VT_BYREF, &dispatch)}, {}, S_OK}};
  const ClosesDialogs whatOpens;  // a preview without a grid says so
  for (const auto& one : cases) {
    Variant result;
    EXPECT_EQ(one.result, invoke(*control, one.id, one.flags, one.args, one.names, &result)) << &one - cases;
  }
  for (const DISPID id : {kGrid, kCatalog}) {
    Variant kept;
    EXPECT_EQ(S_OK, invoke(*control, id, kScriptGet, {}, {}, &kept));
    EXPECT_EQ(dispatch, kept.pdispVal);
  }
}

}  // namespace
}  // namespace vmgv::test

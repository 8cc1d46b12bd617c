// The control's own members, early-bound and late-bound.
#include <array>

#include "frontends/com/bridge.h"
#include "frontends/com/wall.h"
#include "servers/common/type_info.h"
#include "servers/control/edit_control.h"

namespace vmgv {
namespace {

// The numbers that hosts are built with.
enum MemberNumber : DISPID {
  kGrid = 0x68030000,
  kCurrentView = 0x68030001,
  kCurrentCatalog = 0x68030002,
  kShowSummary = 0x60030005,
  kShowSort = 0x60030006,
  kShowOther = 0x60030007,
  kShowItems = 0x60030008,
  kShowGroups = 0x60030009,
  kShowExcel = 0x6003000A,
  kShowFormat = 0x6003000B,
  kFont = 0x6803000C,
  kShowPreview = 0x6003000F,
  kShowPreviewX = 0x60030012,
  kShowGeneral = 0x60030015,
  kExcelVisible = 0x68030016,
};

constexpr WORD kObjectProperty = DISPATCH_PROPERTYGET | DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;
constexpr WORD kValueProperty = DISPATCH_PROPERTYGET | DISPATCH_PROPERTYPUT;
constexpr WORD kWriting = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;

struct MemberRow {
  DISPID id;
  const wchar_t* name;
  WORD access;  // JScript sets an object by PROPERTYPUT alone
  UINT parameters = 0;
};

constexpr auto kMembers = std::to_array<MemberRow>({
    {kGrid, L"Grid", kObjectProperty},
    {kCurrentView, L"CurrentView", kValueProperty},
    {kCurrentCatalog, L"CurrentCatalog", kObjectProperty},
    {kShowSummary, L"ShowSummary", DISPATCH_METHOD},
    {kShowSort, L"ShowSort", DISPATCH_METHOD},
    {kShowOther, L"ShowOther", DISPATCH_METHOD},
    {kShowItems, L"ShowItems", DISPATCH_METHOD},
    {kShowGroups, L"ShowGroups", DISPATCH_METHOD},
    {kShowExcel, L"ShowExcel", DISPATCH_METHOD},
    {kShowFormat, L"ShowFormat", DISPATCH_METHOD},
    {kFont, L"Font", kObjectProperty},
    {kShowPreview, L"ShowPreview", DISPATCH_METHOD, 2},
    {kShowPreviewX, L"ShowPreviewX", DISPATCH_METHOD, 3},
    {kShowGeneral, L"ShowGeneral", DISPATCH_METHOD},
    {kExcelVisible, L"excelVisible", kValueProperty},
});
constexpr std::array<const wchar_t*, 3> kParameters{L"header", L"LLToolbar", L"onlySelected"};

bool sameName(const wchar_t* one, const wchar_t* other) noexcept {
  return CompareStringOrdinal(one, -1, other, -1, TRUE) == CSTR_EQUAL;
}

const MemberRow* memberById(DISPID id) noexcept {
  for (const MemberRow& member : kMembers) {
    if (member.id == id) return &member;
  }
  return nullptr;
}

DISPID parameterNumber(const MemberRow& member, const wchar_t* name) noexcept {
  for (UINT i = 0; i < member.parameters; ++i) {
    if (sameName(kParameters[i], name)) return static_cast<DISPID>(i);
  }
  return DISPID_UNKNOWN;
}

VARIANT_BOOL automationBoolean(bool value) { return value ? VARIANT_TRUE : VARIANT_FALSE; }

// What escapes a dialog ends here: hosts get no error but from ShowFormat.
template <class Statement>
void dropping(Statement&& statement) noexcept {
  try {
    statement();
  } catch (...) {
  }
}

template <class Interface>
ComPtr<Interface> as(const ComPtr<IUnknown>& object) {
  auto found = object.as<Interface>();
  if (object && !found) throw BadCall{DISP_E_TYPEMISMATCH};
  return found;
}

HRESULT handOut(const ObjectRef& object, IDispatch** out) {
  if (!out) return E_POINTER;
  *out = nullptr;
  return guarded([&] { *out = exposeObject(object).detach(); });
}

}  // namespace

HRESULT EditControl::get_CurrentCatalog(IDispatch** catalog) {
  return handOut(core_->CurrentCatalog(), catalog);
}

HRESULT EditControl::putref_CurrentCatalog(IDispatch* catalog) {
  return guarded([&] { core_->setCurrentCatalog(wrapDispatch(catalog)); });
}

HRESULT EditControl::get_Grid(IDispatch** grid) { return handOut(core_->Grid(), grid); }

HRESULT EditControl::putref_Grid(IDispatch* grid) {
  return guarded([&] { core_->setGrid(wrapDispatch(grid)); });
}

HRESULT EditControl::get_CurrentView(BSTR* view) {
  if (!view) return E_POINTER;
  *view = nullptr;
  return guarded([&] { *view = BString(core_->CurrentView()).detach(); });
}

HRESULT EditControl::put_CurrentView(BSTR view) {
  return guarded([&] { core_->setCurrentView(narrow(BString::view(view))); });
}

HRESULT EditControl::get_excelVisible(VARIANT_BOOL* visible) {
  if (!visible) return E_POINTER;
  *visible = automationBoolean(core_->excelVisible());
  return S_OK;
}

HRESULT EditControl::put_excelVisible(VARIANT_BOOL visible) {
  core_->setExcelVisible(visible != VARIANT_FALSE);
  return S_OK;
}

HRESULT EditControl::get_Font(IFontDisp** font) {
  if (!font) return E_POINTER;
  *font = nullptr;
  return guarded([&] { *font = exposeObject(core_->Font()).as<IFontDisp>().detach(); });
}

HRESULT EditControl::putref_Font(IFontDisp* font) {
  return guarded([&] { core_->setFont(wrapDispatch(font)); });
}

HRESULT EditControl::show(VARIANT_BOOL* changed, bool (vmgrEdit::*dialog)()) {
  if (!changed) return E_POINTER;
  *changed = VARIANT_FALSE;
  const ComPtr<IUnknown> stay(&identity_);  // the host may drop the control while the dialog is open
  dropping([&] { (core_->*dialog)(); });
  return S_OK;
}

HRESULT EditControl::ShowSummary(VARIANT_BOOL* changed) { return show(changed, &vmgrEdit::ShowSummary); }
HRESULT EditControl::ShowSort(VARIANT_BOOL* changed) { return show(changed, &vmgrEdit::ShowSort); }
HRESULT EditControl::ShowOther(VARIANT_BOOL* changed) { return show(changed, &vmgrEdit::ShowOther); }
HRESULT EditControl::ShowItems(VARIANT_BOOL* changed) { return show(changed, &vmgrEdit::ShowItems); }
HRESULT EditControl::ShowGroups(VARIANT_BOOL* changed) { return show(changed, &vmgrEdit::ShowGroups); }
HRESULT EditControl::ShowExcel(VARIANT_BOOL* changed) { return show(changed, &vmgrEdit::ShowExcel); }
HRESULT EditControl::ShowGeneral(VARIANT_BOOL* changed) { return show(changed, &vmgrEdit::ShowGeneral); }

void EditControl::showFormat() {
  const ComPtr<IUnknown> stay(&identity_);
  core_->ShowFormat();
}

HRESULT EditControl::ShowFormat(VARIANT_BOOL* changed) {
  if (!changed) return E_POINTER;
  *changed = VARIANT_FALSE;
  return guarded([&] { showFormat(); });
}

HRESULT EditControl::ShowPreview(BSTR* header, VARIANT_BOOL* LLToolbar, VARIANT_BOOL* changed) {
  return ShowPreviewX(header ? *header : nullptr, LLToolbar ? *LLToolbar : VARIANT_FALSE, VARIANT_FALSE,
                      changed);
}

HRESULT EditControl::ShowPreviewX(BSTR header, VARIANT_BOOL LLToolbar, VARIANT_BOOL onlySelected,
                                  VARIANT_BOOL* changed) {
  if (!changed) return E_POINTER;
  *changed = VARIANT_FALSE;
  const ComPtr<IUnknown> stay(&identity_);
  dropping([&] {
    core_->ShowPreviewX(narrow(BString::view(header)), LLToolbar != VARIANT_FALSE,
                        onlySelected != VARIANT_FALSE);
  });
  return S_OK;
}

// IDispatch

HRESULT EditControl::GetTypeInfoCount(UINT* count) {
  if (!count) return E_POINTER;
  *count = 1;
  return S_OK;
}

HRESULT EditControl::GetTypeInfo(UINT index, LCID, ITypeInfo** info) {
  if (!info) return E_POINTER;
  *info = nullptr;
  if (index != 0) return DISP_E_BADINDEX;
  return guarded([&] { *info = embeddedTypeInfo(__uuidof(_vmgrEdit)).detach(); });
}

// The member's name comes first, those of its parameters after it.
HRESULT EditControl::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (!names || !ids || count == 0) return E_INVALIDARG;
  const MemberRow* found = nullptr;
  for (const MemberRow& member : kMembers) {
    if (names[0] && sameName(member.name, names[0])) found = &member;
  }
  ids[0] = found ? found->id : DISPID_UNKNOWN;
  bool allKnown = found;
  for (UINT i = 1; i < count; ++i) {
    ids[i] = found && names[i] ? parameterNumber(*found, names[i]) : DISPID_UNKNOWN;
    allKnown = allKnown && ids[i] != DISPID_UNKNOWN;
  }
  return allKnown ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT EditControl::Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* params,
                            VARIANT* result, EXCEPINFO* exception, UINT* faulty) {
  if (result) VariantInit(result);
  if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (!params) return E_INVALIDARG;
  const MemberRow* member = memberById(id);
  if (!member || !(flags & member->access)) return DISP_E_MEMBERNOTFOUND;
  try {
    const Arguments arguments(*params, locale, faulty);
    if (flags & kWriting) {
      arguments.requireValue();
      return write(id, arguments);
    }
    arguments.requireAtMost(member->parameters);
    VARIANT made;
    VariantInit(&made);
    HRESULT done;
    if (member->access == DISPATCH_METHOD) {
      made.vt = VT_BOOL;
      done = run(id, arguments, &made.boolVal);
    } else {
      done = read(id, made);
    }
    if (SUCCEEDED(done) && result) {
      *result = made;
    } else {
      VariantClear(&made);
    }
    return done;
  } catch (const BadCall& bad) {
    return bad.result;
  } catch (...) {
    return currentException(exception);
  }
}

HRESULT EditControl::read(DISPID id, VARIANT& result) {
  switch (id) {
    case kCurrentView: result.vt = VT_BSTR; return get_CurrentView(&result.bstrVal);
    case kExcelVisible: result.vt = VT_BOOL; return get_excelVisible(&result.boolVal);
    case kGrid: result.vt = VT_DISPATCH; return get_Grid(&result.pdispVal);
    case kCurrentCatalog: result.vt = VT_DISPATCH; return get_CurrentCatalog(&result.pdispVal);
    case kFont: {
      IFontDisp* font = nullptr;
      const HRESULT got = get_Font(&font);
      result.vt = VT_DISPATCH;
      result.pdispVal = font;
      return got;
    }
    default: return DISP_E_MEMBERNOTFOUND;
  }
}

HRESULT EditControl::write(DISPID id, const Arguments& arguments) {
  switch (id) {
    case kCurrentView: return put_CurrentView(arguments.text(0).get());
    case kExcelVisible: return put_excelVisible(arguments.boolean(0));
    case kGrid: return putref_Grid(as<IDispatch>(arguments.object(0)).get());
    case kCurrentCatalog: return putref_CurrentCatalog(as<IDispatch>(arguments.object(0)).get());
    case kFont: return putref_Font(as<IFontDisp>(arguments.object(0)).get());
    default: return DISP_E_MEMBERNOTFOUND;
  }
}

HRESULT EditControl::run(DISPID id, const Arguments& arguments, VARIANT_BOOL* changed) {
  switch (id) {
    case kShowSummary: return ShowSummary(changed);
    case kShowSort: return ShowSort(changed);
    case kShowOther: return ShowOther(changed);
    case kShowItems: return ShowItems(changed);
    case kShowGroups: return ShowGroups(changed);
    case kShowExcel: return ShowExcel(changed);
    case kShowGeneral: return ShowGeneral(changed);
    case kShowFormat:
      *changed = VARIANT_FALSE;
      showFormat();  // its error is Invoke's to describe
      return S_OK;
    case kShowPreview:
      return ShowPreviewX(arguments.text(0).get(), arguments.boolean(1), VARIANT_FALSE, changed);
    case kShowPreviewX:
      return ShowPreviewX(arguments.text(0).get(), arguments.boolean(1), arguments.boolean(2), changed);
    default: return DISP_E_MEMBERNOTFOUND;
  }
}

}  // namespace vmgv

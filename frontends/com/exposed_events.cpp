#include "frontends/com/exposed_events.h"

#include "frontends/com/dispatch_call.h"

namespace vmgv {
namespace {

// {6ADECCF2-62C6-4EA9-B6CF-F33AA16B2F5D}: the source interface.
constexpr IID kEventsInterface = {0x6adeccf2, 0x62c6, 0x4ea9, {0xb6, 0xcf, 0xf3, 0x3a, 0xa1, 0x6b, 0x2f, 0x5d}};
// {EFC48CF7-8B2D-467D-8E30-75D03AE905BD}: stands for every class that raises it.
constexpr CLSID kClass = {0xefc48cf7, 0x8b2d, 0x467d, {0x8e, 0x30, 0x75, 0xd0, 0x3a, 0xe9, 0x05, 0xbd}};
// {60422DFD-C9CC-43F2-804B-B275224CA032}: their library, which is in memory only.
constexpr GUID kLibrary = {0x60422dfd, 0xc9cc, 0x43f2, {0x80, 0x4b, 0xb2, 0x75, 0x22, 0x4c, 0xa0, 0x32}};
// {00020430-0000-0000-C000-000000000046}: the platform's own, with IDispatch.
constexpr GUID kAutomationLibrary = {0x20430, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

constexpr UINT kParameters = 2;
struct EventNames {
  const wchar_t* name;                     // its DISPID is its place in the list, from 1
  const wchar_t* parameters[kParameters];  // Long
};
constexpr EventNames kEvents[] = {{L"BeforePrintPage", {L"page", L"pages"}}};

// A dispatch interface is one of IDispatch. A program that reads this one by its functions does without.
void deriveFromDispatch(ICreateTypeInfo& source) {
  ComPtr<ITypeLib> library;
  ComPtr<ITypeInfo> base;
  HREFTYPE reference = 0;
  if (FAILED(LoadRegTypeLib(kAutomationLibrary, 2, 0, LOCALE_NEUTRAL, library.put())) ||
      FAILED(library->GetTypeInfoOfGuid(IID_IDispatch, base.put()))) {
    return;
  }
  check(source.AddRefTypeInfo(base.get(), &reference));
  check(source.AddImplType(0, reference));
}

void addEvents(ICreateTypeInfo& source) {
  UINT place = 0;
  for (const auto& [name, parameters] : kEvents) {
    ELEMDESC types[kParameters]{};
    for (ELEMDESC& type : types) type.tdesc.vt = VT_I4;
    FUNCDESC function{};
    function.memid = static_cast<MEMBERID>(place) + 1;
    function.lprgelemdescParam = types;
    function.funckind = FUNC_DISPATCH;
    function.invkind = INVOKE_FUNC;
    function.callconv = CC_STDCALL;
    function.cParams = kParameters;
    function.elemdescFunc.tdesc.vt = VT_VOID;
    check(source.AddFuncDesc(place, &function));
    LPOLESTR names[] = {const_cast<LPOLESTR>(name), const_cast<LPOLESTR>(parameters[0]),
                        const_cast<LPOLESTR>(parameters[1])};
    check(source.SetFuncAndParamNames(place, names, kParameters + 1));
    ++place;
  }
}

ComPtr<ITypeInfo> makeClassInfo(const std::string& className) {
  constexpr SYSKIND kSystem = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;
  ComPtr<ICreateTypeLib2> library;
  check(CreateTypeLib2(kSystem, L"vmGridViews.events", library.put()));
  check(library->SetGuid(kLibrary));
  check(library->SetLcid(LOCALE_NEUTRAL));
  check(library->SetName(const_cast<LPOLESTR>(L"vmGridViewsEvents")));
  ComPtr<ICreateTypeInfo> source, owner;
  check(library->CreateTypeInfo(const_cast<LPOLESTR>(L"ObjectEvents"), TKIND_DISPATCH, source.put()));
  check(source->SetGuid(kEventsInterface));
  check(source->SetTypeFlags(TYPEFLAG_FDISPATCHABLE));
  deriveFromDispatch(*source);
  addEvents(*source);
  check(source->LayOut());
  check(library->CreateTypeInfo(wide(className).data(), TKIND_COCLASS, owner.put()));
  check(owner->SetGuid(kClass));
  HREFTYPE reference = 0;
  check(owner->AddRefTypeInfo(source.as<ITypeInfo>().get(), &reference));
  check(owner->AddImplType(0, reference));
  check(owner->SetImplTypeFlags(0, IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE));
  check(owner->LayOut());
  return owner.as<ITypeInfo>();
}

}  // namespace

ExposedEvents::ExposedEvents(IUnknown& owner, Object& object)
    : owner_(owner),
      className_(object.typeName()),
      point_(*this, kEventsInterface),
      listening_(object.listen(*this)) {}

HRESULT ExposedEvents::EnumConnectionPoints(IEnumConnectionPoints** points) {
  return enumerate({&point_}, points);
}

HRESULT ExposedEvents::FindConnectionPoint(REFIID iid, IConnectionPoint** point) {
  if (!point) return E_POINTER;
  *point = nullptr;
  if (iid != kEventsInterface) return CONNECT_E_NOCONNECTION;
  *point = &point_;
  AddRef();
  return S_OK;
}

HRESULT ExposedEvents::GetClassInfo(ITypeInfo** info) {
  if (!info) return E_POINTER;
  *info = nullptr;
  return guarded([&] { *info = makeClassInfo(className_).detach(); });
}

// A listener that does not know the event has nothing to do; one that fails tells whoever raised it.
void ExposedEvents::raised(std::string_view event, std::span<const Value> parameters) {
  const std::wstring name = wide(event);
  DISPID member = DISPID_UNKNOWN;
  for (DISPID id = 1; id <= static_cast<DISPID>(std::size(kEvents)); ++id) {
    if (name == kEvents[id - 1].name) member = id;
  }
  if (member == DISPID_UNKNOWN) return;
  const ComPtr<IUnknown> kept(&owner_);  // a listener may let go of the object
  for (const ComPtr<IUnknown>& sink : point_.sinks()) {
    CallArguments arguments(parameters);
    CallException exception;
    const HRESULT result = static_cast<IDispatch*>(sink.get())
                               ->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                                        &arguments.parameters, nullptr, &exception, nullptr);
    if (result == DISP_E_EXCEPTION) exception.raise();
  }
}

}  // namespace vmgv

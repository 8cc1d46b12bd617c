#include "frontends/com/exposure.h"

#include <array>
#include <vector>

#include "frontends/com/enumerators.h"
#include "frontends/com/registry.h"
#include "frontends/com/text.h"
#include "frontends/com/variant.h"
#include "frontends/com/wall.h"

namespace vmgv {
namespace {

Access accessOf(WORD flags) noexcept {
  if (flags & DISPATCH_PROPERTYPUTREF && !(flags & DISPATCH_PROPERTYPUT)) return Access::PutRef;
  if (flags & DISPATCH_PROPERTYPUT) return Access::Put;
  return flags & DISPATCH_PROPERTYGET ? Access::Get : Access::Call;
}

// Automation passes arguments backwards.
void convert(const DISPPARAMS& parameters, Value* values) {
  for (UINT i = 0; i < parameters.cArgs; ++i)
    values[i] = fromVariant(parameters.rgvarg[parameters.cArgs - 1 - i]);
}

Value invoke(Object& object, MemberId member, Access access, const DISPPARAMS& parameters) {
  constexpr UINT kFew = 4;  // more are rare enough to be stored elsewhere
  if (parameters.cArgs <= kFew) {
    std::array<Value, kFew> values;
    convert(parameters, values.data());
    return object.invoke(member, access, {values.data(), parameters.cArgs});
  }
  std::vector<Value> values(parameters.cArgs);
  convert(parameters, values.data());
  return object.invoke(member, access, values);
}

}  // namespace

Exposure::~Exposure() { forget(*this); }

void* Exposure::otherInterface(REFIID iid) noexcept {
  const bool container = iid == IID_IConnectionPointContainer;
  if (!container && iid != IID_IProvideClassInfo) return nullptr;
  guarded([this] {
    if (!events_) events_ = std::make_unique<ExposedEvents>(*static_cast<IDispatch*>(this), *object_);
  });
  if (!events_ || !events_->areRaised()) return nullptr;
  if (container) return static_cast<IConnectionPointContainer*>(events_.get());
  return static_cast<IProvideClassInfo*>(events_.get());
}

HRESULT Exposure::GetTypeInfoCount(UINT* count) {
  if (!count) return E_POINTER;
  *count = 0;
  return S_OK;
}

HRESULT Exposure::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
  if (!info) return E_POINTER;
  *info = nullptr;
  return DISP_E_BADINDEX;
}

HRESULT Exposure::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (!names || !ids || count == 0 || !names[0]) return E_INVALIDARG;
  for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
  const ObjectRef kept = object_;
  const HRESULT result = guarded([&] { ids[0] = (*kept).member(narrow(names[0])); });
  if (FAILED(result) && result != E_OUTOFMEMORY) return DISP_E_UNKNOWNNAME;
  return SUCCEEDED(result) && count > 1 ? DISP_E_UNKNOWNNAME : result;
}

HRESULT Exposure::Invoke(DISPID member, REFIID iid, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                         EXCEPINFO* exception, UINT*) {
  if (result) V_VT(result) = VT_EMPTY;
  if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (!parameters || (parameters->cArgs > 0 && !parameters->rgvarg)) return E_INVALIDARG;
  const Access access = accessOf(flags);
  if (access == Access::Get || access == Access::Call) {
    if (parameters->cNamedArgs > 0) return DISP_E_NONAMEDARGS;
  } else {
    if (parameters->cArgs == 0) return DISP_E_BADPARAMCOUNT;
    const bool onlyValue = parameters->cNamedArgs == 1 && parameters->rgdispidNamedArgs &&
                           parameters->rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
    if (parameters->cNamedArgs > 0 && !onlyValue) return DISP_E_NONAMEDARGS;
  }
  try {
    const ObjectRef kept = object_;  // a member may drop the last reference to its own object
    if (member == DISPID_NEWENUM) {
      auto enumerator = exposeEnumeration(kept);
      if (result) {
        V_UNKNOWN(result) = enumerator.detach();
        V_VT(result) = VT_UNKNOWN;
      }
      return S_OK;
    }
    const Value value = invoke(*kept, member, access, *parameters);
    if (result) toVariant(value, result);
    return S_OK;
  } catch (...) {
    return currentException(exception);
  }
}

HRESULT Exposure::GetClassIdentity(GUID* identity, BSTR* name) {
  return guarded([&] {
    if (identity) {
      // without a class nobody may remember a member's number
      const ClassId id = (*object_).classId();
      *identity = id ? identityOf(id) : GUID_NULL;
    }
    if (name) *name = BString((*object_).typeName()).detach();
  });
}

}  // namespace vmgv

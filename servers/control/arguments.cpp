#include "servers/control/arguments.h"

#include "frontends/com/variant.h"

namespace vmgv {
namespace {

bool isMissing(const VARIANT& argument) noexcept {
  return argument.vt == VT_ERROR && argument.scode == DISP_E_PARAMNOTFOUND;
}

}  // namespace

Arguments::Arguments(const DISPPARAMS& given, LCID locale, UINT* faulty)
    : given_(given), locale_(locale), faulty_(faulty) {
  if ((given.cArgs && !given.rgvarg) || (given.cNamedArgs && !given.rgdispidNamedArgs) ||
      given.cNamedArgs > given.cArgs) {
    throw BadCall{E_INVALIDARG};
  }
}

void Arguments::requireAtMost(UINT count) const {
  if (given_.cArgs > count) throw BadCall{DISP_E_BADPARAMCOUNT};
  const UINT positional = given_.cArgs - given_.cNamedArgs;
  for (UINT i = 0; i < given_.cNamedArgs; ++i) {
    const DISPID name = given_.rgdispidNamedArgs[i];
    if (name < static_cast<DISPID>(positional) || name >= static_cast<DISPID>(count)) {
      throw BadCall{DISP_E_PARAMNOTFOUND};
    }
  }
}

void Arguments::requireValue() const {
  if (given_.cArgs != 1) throw BadCall{DISP_E_BADPARAMCOUNT};
  if (given_.cNamedArgs == 1 && *given_.rgdispidNamedArgs != DISPID_PROPERTYPUT) {
    throw BadCall{DISP_E_PARAMNOTFOUND};
  }
}

// Arguments come last first, named ones before the others.
const VARIANT* Arguments::find(UINT position) const noexcept {
  const VARIANT* found = nullptr;
  if (position < given_.cArgs - given_.cNamedArgs) found = &given_.rgvarg[given_.cArgs - 1 - position];
  for (UINT i = 0; i < given_.cNamedArgs; ++i) {
    const DISPID name = given_.rgdispidNamedArgs[i];
    if (name == static_cast<DISPID>(position) || (name == DISPID_PROPERTYPUT && position == 0)) {
      found = &given_.rgvarg[i];
    }
  }
  return found && isMissing(*found) ? nullptr : found;
}

BString Arguments::text(UINT position) const {
  const VARIANT* argument = find(position);
  BString text;
  if (!argument) return text;
  Variant converted;
  const HRESULT result =
      VariantChangeTypeEx(&converted, const_cast<VARIANT*>(argument), locale_, VARIANT_ALPHABOOL, VT_BSTR);
  if (FAILED(result)) reject(*argument, result);
  *text.put() = std::exchange(converted.bstrVal, nullptr);
  return text;
}

VARIANT_BOOL Arguments::boolean(UINT position) const {
  const VARIANT* argument = find(position);
  if (!argument) return VARIANT_FALSE;
  Variant converted;
  const HRESULT result = VariantChangeTypeEx(&converted, const_cast<VARIANT*>(argument), locale_, 0, VT_BOOL);
  if (FAILED(result)) reject(*argument, result);
  return converted.boolVal;
}

ComPtr<IUnknown> Arguments::object(UINT position) const {
  const VARIANT* argument = find(position);
  if (!argument) throw BadCall{DISP_E_PARAMNOTOPTIONAL};
  Variant plain;
  const HRESULT result = VariantCopyInd(&plain, const_cast<VARIANT*>(argument));
  if (FAILED(result)) reject(*argument, result);
  if (plain.vt == VT_DISPATCH || plain.vt == VT_UNKNOWN) return plain.punkVal;
  if (plain.vt == VT_EMPTY || plain.vt == VT_NULL) return nullptr;
  reject(*argument, DISP_E_TYPEMISMATCH);
}

void Arguments::reject(const VARIANT& argument, HRESULT result) const {
  if (faulty_) *faulty_ = static_cast<UINT>(&argument - given_.rgvarg);
  throw BadCall{result};
}

}  // namespace vmgv

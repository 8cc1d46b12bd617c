#include "frontends/com/variant.h"

#include <limits>

#include "frontends/com/bridge.h"
#include "frontends/com/text.h"
#include "support/automation/error.h"

namespace vmgv {
namespace {

Value wholeNumber(std::int64_t number) {
  if (number >= std::numeric_limits<std::int32_t>::min() &&
      number <= std::numeric_limits<std::int32_t>::max()) {
    return static_cast<std::int32_t>(number);
  }
  return Decimal::fromInteger(number);
}

Value wholeNumber(std::uint64_t number) {
  if (number <= static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) {
    return wholeNumber(static_cast<std::int64_t>(number));
  }
  Decimal large;
  large.low = number;
  return large;
}

Value decimalNumber(const DECIMAL& number) {
  Decimal value;
  value.low = number.Lo64;
  value.high = number.Hi32;
  value.scale = number.scale;
  value.negative = number.sign == DECIMAL_NEG;
  return value;
}

[[noreturn]] void refuse(const VARIANT& variant) {
  if (V_VT(&variant) & VT_ARRAY) throw Error(ErrorNumber::TypeMismatch, "An array cannot be used here");
  if ((V_VT(&variant) & ~VT_BYREF) == VT_ERROR) {
    throw Error(ErrorNumber::TypeMismatch, "An error value cannot be used here");
  }
  throw Error(ErrorNumber::TypeMismatch,
              "A value of the automation type " + std::to_string(V_VT(&variant)) + " cannot be used here");
}

Value errorValue(const VARIANT& variant, SCODE code) {
  if (code == DISP_E_PARAMNOTFOUND) return Missing{};
  refuse(variant);
}

template <class T>
const T& pointee(const T* pointer) {
  if (!pointer) throw Error(ErrorNumber::InvalidCall, "A value is passed by a null reference");
  return *pointer;
}

// What a by-reference variant points at, as a by-value one without ownership.
VARIANT dereferenced(const VARIANT& variant) {
  VARIANT held;
  V_VT(&held) = V_VT(&variant) & ~VT_BYREF;
  switch (V_VT(&held)) {
    case VT_VARIANT: {
      const VARIANT& inner = pointee(V_VARIANTREF(&variant));
      if (V_VT(&inner) == (VT_VARIANT | VT_BYREF)) refuse(inner);  // one step only: it might lead to itself
      return V_VT(&inner) & VT_BYREF ? dereferenced(inner) : inner;
    }
    case VT_I1:
    case VT_UI1: V_UI1(&held) = pointee(V_UI1REF(&variant)); break;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL: V_I2(&held) = pointee(V_I2REF(&variant)); break;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_ERROR: V_I4(&held) = pointee(V_I4REF(&variant)); break;
    case VT_I8:
    case VT_UI8: V_I8(&held) = pointee(V_I8REF(&variant)); break;
    case VT_R4: V_R4(&held) = pointee(V_R4REF(&variant)); break;
    case VT_R8:
    case VT_DATE: V_R8(&held) = pointee(V_R8REF(&variant)); break;
    case VT_CY: V_CY(&held) = pointee(V_CYREF(&variant)); break;
    case VT_BSTR: V_BSTR(&held) = pointee(V_BSTRREF(&variant)); break;
    case VT_UNKNOWN: V_UNKNOWN(&held) = pointee(V_UNKNOWNREF(&variant)); break;
    case VT_DISPATCH: V_DISPATCH(&held) = pointee(V_DISPATCHREF(&variant)); break;
    case VT_DECIMAL:
      V_DECIMAL(&held) = pointee(V_DECIMALREF(&variant));
      V_VT(&held) = VT_DECIMAL;  // the number lies over the type
      break;
    default: refuse(variant);
  }
  return held;
}

}  // namespace

Value fromVariant(const VARIANT& variant) {
  switch (V_VT(&variant)) {
    case VT_EMPTY: return {};
    case VT_NULL: return Null{};
    case VT_I2: return V_I2(&variant);
    case VT_I4: return static_cast<std::int32_t>(V_I4(&variant));
    case VT_R4: return V_R4(&variant);
    case VT_R8: return V_R8(&variant);
    case VT_CY: return Currency{V_CY(&variant).int64};
    case VT_DATE: return Date{V_DATE(&variant)};
    case VT_BSTR: return narrow(BString::view(V_BSTR(&variant)));
    case VT_DISPATCH: return wrapDispatch(V_DISPATCH(&variant));
    case VT_UNKNOWN: return wrapUnknown(V_UNKNOWN(&variant));
    case VT_ERROR: return errorValue(variant, V_ERROR(&variant));
    case VT_BOOL: return V_BOOL(&variant) != VARIANT_FALSE;
    case VT_DECIMAL: return decimalNumber(V_DECIMAL(&variant));
    case VT_I1: return static_cast<std::int16_t>(static_cast<signed char>(V_I1(&variant)));
    case VT_UI1: return Currency{std::int64_t{V_UI1(&variant)} * 10000};
    case VT_UI2: return static_cast<std::int32_t>(V_UI2(&variant));
    case VT_INT: return static_cast<std::int32_t>(V_INT(&variant));
    case VT_UI4:
    case VT_UINT: return wholeNumber(std::uint64_t{V_UI4(&variant)});
    case VT_I8: return wholeNumber(static_cast<std::int64_t>(V_I8(&variant)));
    case VT_UI8: return wholeNumber(static_cast<std::uint64_t>(V_UI8(&variant)));
    default: break;
  }
  if (!(V_VT(&variant) & VT_BYREF) || V_VT(&variant) & VT_ARRAY) refuse(variant);
  return fromVariant(dereferenced(variant));
}

void toVariant(const Value& value, VARIANT* variant) {
  V_VT(variant) = VT_EMPTY;
  switch (value.type()) {
    case ValueType::Empty: return;
    case ValueType::Missing:
      V_ERROR(variant) = DISP_E_PARAMNOTFOUND;
      V_VT(variant) = VT_ERROR;
      return;
    case ValueType::Null: V_VT(variant) = VT_NULL; return;
    case ValueType::Boolean:
      V_BOOL(variant) = *value.as<bool>() ? VARIANT_TRUE : VARIANT_FALSE;
      V_VT(variant) = VT_BOOL;
      return;
    case ValueType::Integer:
      V_I2(variant) = *value.as<std::int16_t>();
      V_VT(variant) = VT_I2;
      return;
    case ValueType::Long:
      V_I4(variant) = *value.as<std::int32_t>();
      V_VT(variant) = VT_I4;
      return;
    case ValueType::Single:
      V_R4(variant) = *value.as<float>();
      V_VT(variant) = VT_R4;
      return;
    case ValueType::Double:
      V_R8(variant) = *value.as<double>();
      V_VT(variant) = VT_R8;
      return;
    case ValueType::Currency:
      V_CY(variant).int64 = value.as<Currency>()->units;
      V_VT(variant) = VT_CY;
      return;
    case ValueType::Decimal: {
      const Decimal& number = *value.as<Decimal>();
      DECIMAL& decimal = V_DECIMAL(variant);
      decimal.Lo64 = number.low;
      decimal.Hi32 = number.high;
      decimal.scale = number.scale;
      decimal.sign = number.negative ? DECIMAL_NEG : 0;
      V_VT(variant) = VT_DECIMAL;
      return;
    }
    case ValueType::Date:
      V_DATE(variant) = value.as<Date>()->days;
      V_VT(variant) = VT_DATE;
      return;
    case ValueType::String:
      V_BSTR(variant) = BString(value.text()).detach();
      V_VT(variant) = VT_BSTR;
      return;
    case ValueType::Object:
      V_DISPATCH(variant) = exposeObject(*value.as<ObjectRef>()).detach();
      V_VT(variant) = VT_DISPATCH;
      return;
  }
}

}  // namespace vmgv

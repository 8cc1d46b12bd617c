// Values as automation passes them between programs.
#pragma once

#include <ole2.h>

#include "support/automation/value.h"

namespace vmgv {

// The value of any type, one passed by reference too; DISP_E_PARAMNOTFOUND is Missing. Whole numbers without
// a type of their own take one that holds them; a Byte becomes a Currency, for it is exact and, like a Byte,
// not among the types that an export writes as numbers. Arrays and error values: Error 13.
Value fromVariant(const VARIANT& variant);

// Fills a variant that holds nothing yet. An object crosses as VT_DISPATCH. On an exception it is VT_EMPTY.
void toVariant(const Value& value, VARIANT* variant);

// An owned VARIANT.
class Variant : public VARIANT {
 public:
  Variant() noexcept { VariantInit(this); }
  explicit Variant(const Value& value) { toVariant(value, this); }
  Variant(const Variant&) = delete;
  Variant& operator=(const Variant&) = delete;
  ~Variant() { VariantClear(this); }

  VARIANT* put() noexcept {
    VariantClear(this);
    return this;
  }
  Value value() const { return fromVariant(*this); }
};

}  // namespace vmgv

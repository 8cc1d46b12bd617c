// The arguments of one late-bound call, by position.
#pragma once

#include <ole2.h>

#include "frontends/com/com_ptr.h"
#include "frontends/com/text.h"

namespace vmgv {

// Thrown for a call that does not fit the member; the caller of Invoke gets the result.
struct BadCall {
  HRESULT result;
};

class Arguments {
 public:
  // `faulty` may be null; it receives the place, as the caller counts, of an argument of the wrong type.
  Arguments(const DISPPARAMS& given, LCID locale, UINT* faulty);

  // Throws BadCall where there are more, or named ones that the member does not have.
  void requireAtMost(UINT count) const;
  // For a property that is given a value: there is one.
  void requireValue() const;

  // An omitted text is "", an omitted Boolean is False. Throws BadCall for another type.
  BString text(UINT position) const;
  VARIANT_BOOL boolean(UINT position) const;
  // Empty and Null are nothing: script languages have no other way to say so.
  ComPtr<IUnknown> object(UINT position) const;

 private:
  const VARIANT* find(UINT position) const noexcept;
  [[noreturn]] void reject(const VARIANT& argument, HRESULT result) const;

  const DISPPARAMS& given_;
  LCID locale_;
  UINT* faulty_;
};

}  // namespace vmgv

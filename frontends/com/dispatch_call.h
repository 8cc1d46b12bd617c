// What a call by IDispatch takes, and what it tells when it fails.
#pragma once

#include <ole2.h>

#include <array>
#include <memory>
#include <span>
#include <string>
#include <utility>

#include "frontends/com/text.h"
#include "frontends/com/variant.h"
#include "frontends/com/wall.h"

namespace vmgv {

// Automation takes arguments backwards.
class CallArguments {
 public:
  explicit CallArguments(std::span<const Value> values) {
    if (values.size() > few_.size()) many_ = std::make_unique<Variant[]>(values.size());
    first_ = many_ ? many_.get() : few_.data();
    for (std::size_t i = 0; i < values.size(); ++i) toVariant(values[values.size() - 1 - i], first_ + i);
    parameters.rgvarg = first_;
    parameters.cArgs = static_cast<UINT>(values.size());
  }

  DISPPARAMS parameters{};

 private:
  std::array<Variant, 4> few_;
  std::unique_ptr<Variant[]> many_;
  Variant* first_;
};

// Owns what a failing call tells.
struct CallException : EXCEPINFO {
  CallException() : EXCEPINFO{} {}
  CallException(const CallException&) = delete;
  CallException& operator=(const CallException&) = delete;
  ~CallException() { clear(); }
  void clear() {
    SysFreeString(bstrSource);
    SysFreeString(bstrDescription);
    SysFreeString(bstrHelpFile);
    static_cast<EXCEPINFO&>(*this) = {};
  }
  void complete() {
    if (const auto fillIn = std::exchange(pfnDeferredFillIn, nullptr)) fillIn(this);
  }
  HRESULT code() {
    complete();
    return scode != 0 ? scode : wCode != 0 ? static_cast<HRESULT>(0x800A0000 + wCode) : E_FAIL;
  }
  [[noreturn]] void raise() {
    const Error meaning = errorOf(code());
    const std::string text = narrow(BString::view(bstrDescription));
    throw Error(meaning.number(), text.empty() ? meaning.description() : text);
  }
};

}  // namespace vmgv

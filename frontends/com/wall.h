// The wall between our exceptions and the callers of COM methods.
#pragma once

#include <ole2.h>

#include <string_view>
#include <type_traits>

#include "support/automation/error.h"

namespace vmgv {

// The number as automation clients expect it: run-time errors as 0x800A0000 + n, others as they stand.
HRESULT resultOf(const Error& error) noexcept;
// What a failing call of somebody else means as an error of the run-time; its description names `what`.
Error errorOf(HRESULT result, std::string_view what = {});
// Throws errorOf where the call has failed.
void check(HRESULT result, std::string_view what = {});

namespace detail {

// For a catch-all: the current exception as a result, with error information for the caller.
HRESULT currentFailure() noexcept;

}  // namespace detail

// For IDispatch::Invoke within a catch-all: fills `info` where it is not null and gives DISP_E_EXCEPTION.
HRESULT currentException(EXCEPINFO* info) noexcept;

// Runs the body of a COM method; the body gives an HRESULT or nothing (S_OK). No exception leaves it: an
// Error becomes its number and is described to the caller by SetErrorInfo.
template <class F>
HRESULT guarded(F&& body) noexcept {
  try {
    if constexpr (std::is_void_v<std::invoke_result_t<F>>) {
      body();
      return S_OK;
    } else {
      return body();
    }
  } catch (...) {
    return detail::currentFailure();
  }
}

}  // namespace vmgv

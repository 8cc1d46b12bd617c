#include "frontends/com/wall.h"

#include <new>
#include <optional>
#include <string>

#include "frontends/com/com_ptr.h"
#include "frontends/com/text.h"

namespace vmgv {
namespace {

constexpr HRESULT kRunTimeErrors = static_cast<HRESULT>(0x800A0000);  // FACILITY_CONTROL
constexpr const char* kSource = "vmGridViews";

struct Meaning {
  HRESULT result;
  std::int32_t number;
};

// The numbers that the run-time's clients see for the results of automation, from its list of trappable
// errors.
constexpr Meaning kMeanings[] = {
    {E_INVALIDARG, 5},
    {DISP_E_OVERFLOW, 6},
    {E_OUTOFMEMORY, 7},
    {DISP_E_BADINDEX, 9},
    {DISP_E_ARRAYISLOCKED, 10},
    {DISP_E_DIVBYZERO, 11},
    {DISP_E_TYPEMISMATCH, 13},
    {DISP_E_BADVARTYPE, 13},
    {STG_E_FILENOTFOUND, 53},
    {STG_E_MEDIUMFULL, 61},
    {STG_E_TOOMANYOPENFILES, 67},
    {E_ACCESSDENIED, 70},
    {STG_E_ACCESSDENIED, 70},
    {STG_E_SHAREVIOLATION, 70},
    {STG_E_LOCKVIOLATION, 70},
    {STG_E_PATHNOTFOUND, 76},
    {REGDB_E_CLASSNOTREG, 429},
    {CO_E_CLASSSTRING, 429},
    {CO_E_APPNOTFOUND, 429},
    {CO_E_DLLNOTFOUND, 429},
    {CO_E_ERRORINDLL, 429},
    {CO_E_SERVER_EXEC_FAILURE, 429},
    {MK_E_UNAVAILABLE, 429},
    {E_NOINTERFACE, 430},
    {DISP_E_UNKNOWNINTERFACE, 430},
    {DISP_E_MEMBERNOTFOUND, 438},
    {DISP_E_UNKNOWNNAME, 438},
    {E_NOTIMPL, 445},
    {DISP_E_NONAMEDARGS, 446},
    {DISP_E_UNKNOWNLCID, 447},
    {DISP_E_PARAMNOTFOUND, 448},
    {DISP_E_PARAMNOTOPTIONAL, 449},
    {DISP_E_BADPARAMCOUNT, 450},
    {DISP_E_NOTACOLLECTION, 451},
    {static_cast<HRESULT>(0x800706BA), 462},  // the server's process has gone
    {RPC_E_DISCONNECTED, 462},
};

std::int32_t numberOf(HRESULT result) noexcept {
  if ((static_cast<DWORD>(result) >> 16) == 0x800A) return result & 0xFFFF;
  for (const Meaning& meaning : kMeanings) {
    if (meaning.result == result) return meaning.number;
  }
  return result;
}

// The system's words for a result; "" where it has none.
std::string systemText(HRESULT result) {
  wchar_t text[512];
  DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                static_cast<DWORD>(result), 0, text, std::size(text), nullptr);
  while (length > 0 && text[length - 1] <= L' ') --length;
  return narrow({text, length});
}

std::string hexadecimal(HRESULT result) {
  static constexpr char kDigits[] = "0123456789ABCDEF";
  std::string text = "0x";
  for (int shift = 28; shift >= 0; shift -= 4) text += kDigits[static_cast<DWORD>(result) >> shift & 15];
  return text;
}

// Nothing where the failure has no words of its own.
struct Failure {
  HRESULT result;
  std::optional<Error> error;
};

Failure current() noexcept {
  try {
    throw;
  } catch (const Error& error) {
    return {resultOf(error), error};
  } catch (const std::bad_alloc&) {
    return {E_OUTOFMEMORY, {}};
  } catch (...) {
    return {E_FAIL, {}};
  }
}

BSTR described(const char* text) noexcept {
  try {
    return BString(std::string_view(text)).detach();
  } catch (...) {
    return nullptr;  // a caller does without the words
  }
}

}  // namespace

HRESULT resultOf(const Error& error) noexcept {
  const std::int32_t number = error.number();
  if (number < 0) return number;
  return kRunTimeErrors + (number > 0 && number <= 0xFFFF ? number : 1004);
}

Error errorOf(HRESULT result, std::string_view what) {
  const std::int32_t number = numberOf(result);
  std::string text = Error(static_cast<ErrorNumber>(number)).description();
  const bool special = text != Error(ErrorNumber::Application).description();
  if (!special) text = systemText(result);
  if (text.empty()) text = "Automation error";
  if (number < 0) text += " (" + hexadecimal(result) + ")";
  return {number, what.empty() ? text : std::string(what) + ": " + text};
}

void check(HRESULT result, std::string_view what) {
  if (FAILED(result)) throw errorOf(result, what);
}

HRESULT detail::currentFailure() noexcept {
  const Failure failure = current();
  ComPtr<ICreateErrorInfo> made;
  if (failure.error && SUCCEEDED(CreateErrorInfo(made.put()))) {
    BString source, text;
    *source.put() = described(kSource);
    *text.put() = described(failure.error->description());
    made->SetSource(source.get());
    made->SetDescription(text.get());
    if (const auto info = made.as<IErrorInfo>()) SetErrorInfo(0, info.get());
  }
  return failure.result;
}

HRESULT currentException(EXCEPINFO* info) noexcept {
  const Failure failure = current();
  if (!info) return failure.error ? DISP_E_EXCEPTION : failure.result;
  *info = {};
  info->scode = failure.result;
  info->bstrSource = described(kSource);
  if (failure.error) info->bstrDescription = described(failure.error->description());
  return DISP_E_EXCEPTION;
}

}  // namespace vmgv

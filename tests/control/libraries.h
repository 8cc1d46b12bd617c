// The servers' DLLs, loaded from where the build puts them, without registration.
#pragma once

#include <ole2.h>
//
#include <olectl.h>

#include <stdexcept>
#include <string>

#include "frontends/com/com_object.h"
#include "frontends/com/com_ptr.h"
#include "frontends/com/text.h"
#include "frontends/com/variant.h"
#include "string_service_library.h"
#include "vmgridviews.h"

namespace vmgv::test {

// Throws where the library is missing, or lacks the function.
template <class Function>
Function entry(HMODULE module, const char* name) {
  const auto found = GetProcAddress(module, name);
  if (!found) throw std::runtime_error(std::string("no entry point ") + name);
  return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(found));
}

struct Library {
  explicit Library(const wchar_t* file);

  std::wstring path;
  decltype(&DllGetClassObject) classObject;
  decltype(&DllCanUnloadNow) canUnload;
  decltype(&DllRegisterServer) enter;
  decltype(&DllUnregisterServer) remove;
  HRESULT(STDAPICALLTYPE* install)(BOOL install, PCWSTR scope);
};

const Library& controlLibrary();
const Library& stringLibrary();

// Registers a library for as long as it lives.
class Registered {
 public:
  explicit Registered(const Library& library);
  Registered(Registered&&) = delete;
  ~Registered() { library_.remove(); }

 private:
  const Library& library_;
};

ComPtr<IClassFactory> controlFactory();
ComPtr<_vmgrEdit> makeControl();
ComPtr<IConnectionPoint> notificationsOf(_vmgrEdit& control);

// Closes every dialog that opens in this thread, as by its title bar, until it goes out of scope.
class ClosesDialogs {
 public:
  ClosesDialogs();
  ClosesDialogs(ClosesDialogs&&) = delete;
  ~ClosesDialogs() { KillTimer(nullptr, timer_); }

  static inline int closed = 0;          // since the program started
  static inline std::wstring lastTitle;  // of the dialog closed last

 private:
  UINT_PTR timer_;
};

}  // namespace vmgv::test

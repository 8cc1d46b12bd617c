// The servers' DLLs, loaded from where the build puts them, without registration.
#pragma once

#include <ole2.h>
//
#include <olectl.h>

#include <string>

#include "frontends/com/com_object.h"
#include "frontends/com/com_ptr.h"
#include "frontends/com/text.h"
#include "frontends/com/variant.h"
#include "string_service_library.h"
#include "vmgridviews.h"

namespace vmgv::test {

class Library {
 public:
  explicit Library(const wchar_t* file);

  const std::wstring& path() const noexcept { return path_; }
  ComPtr<IClassFactory> factory(REFCLSID clsid) const;
  HRESULT canUnload() const { return canUnload_(); }
  HRESULT enter() const { return register_(); }
  HRESULT remove() const { return unregister_(); }
  HRESULT classObject(REFCLSID clsid, REFIID iid, void** out) const { return classObject_(clsid, iid, out); }

 private:
  std::wstring path_;
  decltype(&DllGetClassObject) classObject_;
  decltype(&DllCanUnloadNow) canUnload_;
  HRESULT(STDAPICALLTYPE* register_)();
  HRESULT(STDAPICALLTYPE* unregister_)();
};

const Library& controlLibrary();
const Library& stringLibrary();

// Registers a library for as long as it lives.
class Registered {
 public:
  explicit Registered(const Library& library);
  Registered(const Registered&) = delete;
  Registered& operator=(const Registered&) = delete;
  ~Registered() { library_.remove(); }

 private:
  const Library& library_;
};

ComPtr<_vmgrEdit> makeControl();

DISPID idOf(IDispatch& object, const wchar_t* name);

// Closes every dialog that opens in this thread, as by its title bar, until it goes out of scope.
class ClosesDialogs {
 public:
  ClosesDialogs();
  ClosesDialogs(const ClosesDialogs&) = delete;
  ClosesDialogs& operator=(const ClosesDialogs&) = delete;
  ~ClosesDialogs();

  static int closed() noexcept;     // since the first one was made
  static std::wstring lastTitle();  // of the dialog closed last
};

}  // namespace vmgv::test

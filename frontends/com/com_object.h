// Base of a COM object of ours: its reference count and its list of interfaces. Apartment-threaded.
#pragma once

#include <ole2.h>

#include <utility>

#include "frontends/com/com_ptr.h"

namespace vmgv {

// How many objects of this module are alive: it must not be unloaded before there are none.
long livingComObjects() noexcept;

namespace detail {

void countComObject(long change) noexcept;

}  // namespace detail

// class Sheet final : public ComObject<IDispatch, IProvideClassInfo> {...}; identity is the first interface.
// A class answers for an interface that another one derives from (IPersist of IPersistStreamInit), or for an
// object inside it, by overriding otherInterface().
template <class First, class... Rest>
class ComObject : public First, public Rest... {
 public:
  ComObject() noexcept { detail::countComObject(1); }
  ComObject(const ComObject&) = delete;
  ComObject& operator=(const ComObject&) = delete;
  virtual ~ComObject() { detail::countComObject(-1); }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    if (!out) return E_POINTER;
    *out = nullptr;
    if (iid == __uuidof(IUnknown)) {
      *out = static_cast<First*>(this);
    } else {
      (void)(offer<First>(iid, out) || ... || offer<Rest>(iid, out));
    }
    if (!*out) *out = otherInterface(iid);
    if (!*out) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) {
      references_ = 1;  // what the destructor does may take and drop references
      delete this;
    }
    return left;
  }

 protected:
  // A pointer to the interface, without a reference; null where there is none.
  virtual void* otherInterface(REFIID) noexcept { return nullptr; }

 private:
  template <class I>
  bool offer(REFIID iid, void** out) noexcept {
    if (iid != __uuidof(I)) return false;
    *out = static_cast<I*>(this);
    return true;
  }

  ULONG references_ = 0;
};

template <class T, class... A>
ComPtr<T> makeComObject(A&&... args) {
  return ComPtr<T>(new T(std::forward<A>(args)...));
}

}  // namespace vmgv

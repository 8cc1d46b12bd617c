// A counted pointer to a COM interface.
#pragma once

#include <ole2.h>

#include <cstddef>
#include <type_traits>
#include <utility>

namespace vmgv {

template <class T>
class ComPtr {
 public:
  ComPtr() noexcept = default;
  ComPtr(std::nullptr_t) noexcept {}                 // NOLINT: nothing is a pointer
  ComPtr(T* pointer) noexcept : pointer_(pointer) {  // NOLINT: takes a reference of its own
    if (pointer_) pointer_->AddRef();
  }
  ComPtr(const ComPtr& other) noexcept : ComPtr(other.pointer_) {}
  template <class U>
  requires std::is_convertible_v<U*, T*> ComPtr(const ComPtr<U>& other)
  noexcept : ComPtr(other.get()) {}  // NOLINT: a pointer to a base
  ComPtr(ComPtr&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(pointer_, other.pointer_);
    return *this;
  }
  ~ComPtr() {
    if (pointer_) pointer_->Release();
  }

  // Takes over a reference that the caller owns.
  static ComPtr adopt(T* pointer) noexcept {
    ComPtr owner;
    owner.pointer_ = pointer;
    return owner;
  }

  T* get() const noexcept { return pointer_; }
  T* operator->() const noexcept { return pointer_; }
  T& operator*() const noexcept { return *pointer_; }
  explicit operator bool() const noexcept { return pointer_ != nullptr; }
  bool operator==(const ComPtr& other) const noexcept { return pointer_ == other.pointer_; }

  // For a call that hands out a reference: service->QueryInterface(iid, pointer.putVoid()).
  T** put() noexcept {
    *this = nullptr;
    return &pointer_;
  }
  void** putVoid() noexcept { return reinterpret_cast<void**>(put()); }
  T* detach() noexcept { return std::exchange(pointer_, nullptr); }

  // The object's U, or null where it has none.
  template <class U>
  ComPtr<U> as() const noexcept {
    ComPtr<U> other;
    if (pointer_ && FAILED(pointer_->QueryInterface(__uuidof(U), other.putVoid()))) other.detach();
    return other;
  }

 private:
  T* pointer_ = nullptr;
};

}  // namespace vmgv

// Text on its way between UTF-8 and the platform's UTF-16.
#pragma once

#include <ole2.h>

#include <string>
#include <string_view>
#include <utility>

namespace vmgv {

// Malformed input becomes U+FFFD.
std::wstring wide(std::string_view utf8);
std::string narrow(std::wstring_view text);

// An owned automation string. Throws std::bad_alloc.
class BString {
 public:
  BString() noexcept = default;
  explicit BString(std::string_view utf8);
  explicit BString(std::wstring_view text);
  BString(BString&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
  BString(const BString&) = delete;
  BString& operator=(BString other) noexcept {
    std::swap(text_, other.text_);
    return *this;
  }
  ~BString() { SysFreeString(text_); }

  // A null BSTR is "", and a BSTR may hold zeros.
  static std::wstring_view view(BSTR text) noexcept { return {text ? text : L"", SysStringLen(text)}; }

  BSTR get() const noexcept { return text_; }
  BSTR* put() noexcept {
    *this = BString();
    return &text_;
  }
  BSTR detach() noexcept { return std::exchange(text_, nullptr); }
  std::wstring_view view() const noexcept { return view(text_); }

 private:
  BSTR text_ = nullptr;
};

}  // namespace vmgv

#include "frontends/com/text.h"

#include <limits>
#include <new>

namespace vmgv {
namespace {

// The conversions count in int.
int countOf(std::size_t units) {
  if (units > static_cast<std::size_t>(std::numeric_limits<int>::max())) throw std::bad_alloc();
  return static_cast<int>(units);
}

// 0 is a failure, since no empty text comes here: what does not fit in the count is too long for anybody.
int produced(int count) {
  if (count <= 0) throw std::bad_alloc();
  return count;
}

int wideLength(std::string_view utf8) {
  return produced(MultiByteToWideChar(CP_UTF8, 0, utf8.data(), countOf(utf8.size()), nullptr, 0));
}

void widenInto(std::string_view utf8, wchar_t* out, int length) {
  MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), out, length);
}

bool isAscii(std::wstring_view text) noexcept {
  wchar_t bits = 0;
  for (const wchar_t c : text) bits |= c;
  return bits < 0x80;
}

bool isAscii(std::string_view text) noexcept {
  unsigned char bits = 0;
  for (const char c : text) bits |= static_cast<unsigned char>(c);
  return bits < 0x80;
}

BSTR allocated(const wchar_t* text, std::size_t length) {
  BSTR made = length > std::numeric_limits<UINT>::max() / 2 - 16
                  ? nullptr
                  : SysAllocStringLen(text, static_cast<UINT>(length));
  if (!made) throw std::bad_alloc();
  return made;
}

}  // namespace

std::wstring wide(std::string_view utf8) {
  if (isAscii(utf8)) return {utf8.begin(), utf8.end()};
  std::wstring text(static_cast<std::size_t>(wideLength(utf8)), L'\0');
  widenInto(utf8, text.data(), static_cast<int>(text.size()));
  return text;
}

std::string narrow(std::wstring_view text) {
  if (isAscii(text)) return {text.begin(), text.end()};
  const int length = countOf(text.size());
  std::string utf8(static_cast<std::size_t>(produced(
                       WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr))),
                   '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), length, utf8.data(), static_cast<int>(utf8.size()), nullptr,
                      nullptr);
  return utf8;
}

BString::BString(std::wstring_view text) : text_(allocated(text.data(), text.size())) {}

BString::BString(std::string_view utf8) {
  if (isAscii(utf8)) {
    text_ = allocated(nullptr, utf8.size());
    for (std::size_t i = 0; i < utf8.size(); ++i) text_[i] = static_cast<wchar_t>(utf8[i]);
  } else {
    const int length = wideLength(utf8);
    text_ = allocated(nullptr, static_cast<std::size_t>(length));
    widenInto(utf8, text_, length);
  }
}

}  // namespace vmgv

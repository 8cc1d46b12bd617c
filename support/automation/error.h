// The one error that a late-bound call throws: a number and a description, as automation clients know them.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace vmgv {

// Numbers are the automation run-time's own (the "trappable errors" of its documentation).
enum class ErrorNumber : std::int32_t {
  InvalidCall = 5,
  Overflow = 6,
  OutOfMemory = 7,
  SubscriptOutOfRange = 9,
  TypeMismatch = 13,
  FileNotFound = 53,
  DeviceIo = 57,
  DiskFull = 61,
  PathAccess = 75,
  ObjectNotSet = 91,
  InvalidNull = 94,
  ObjectRequired = 424,
  CannotCreateObject = 429,
  MemberNotFound = 438,
  ArgumentCount = 450,
  Printer = 482,
  Application = 1004,  // the spreadsheet's "application-defined error"
};

class Error : public std::runtime_error {
 public:
  Error(std::int32_t number, const std::string& description)
      : std::runtime_error(description), number_(number) {}
  Error(ErrorNumber number, const std::string& description)
      : Error(static_cast<std::int32_t>(number), description) {}
  // With the run-time's standard description for the number.
  explicit Error(ErrorNumber number);

  std::int32_t number() const noexcept { return number_; }
  const char* description() const noexcept { return what(); }

 private:
  std::int32_t number_;
};

}  // namespace vmgv

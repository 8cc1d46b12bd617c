#include "support/automation/error.h"

namespace vmgv {
namespace {

const char* standardDescription(ErrorNumber number) {
  switch (number) {
    case ErrorNumber::InvalidCall: return "Invalid procedure call or argument";
    case ErrorNumber::Overflow: return "Overflow";
    case ErrorNumber::OutOfMemory: return "Out of memory";
    case ErrorNumber::SubscriptOutOfRange: return "Subscript out of range";
    case ErrorNumber::TypeMismatch: return "Type mismatch";
    case ErrorNumber::FileNotFound: return "File not found";
    case ErrorNumber::DeviceIo: return "Device I/O error";
    case ErrorNumber::DiskFull: return "Disk full";
    case ErrorNumber::PathAccess: return "Path/File access error";
    case ErrorNumber::ObjectNotSet: return "Object variable or With block variable not set";
    case ErrorNumber::InvalidNull: return "Invalid use of Null";
    case ErrorNumber::ObjectRequired: return "Object required";
    case ErrorNumber::CannotCreateObject: return "ActiveX component can't create object";
    case ErrorNumber::MemberNotFound: return "Object doesn't support this property or method";
    case ErrorNumber::ArgumentCount: return "Wrong number of arguments or invalid property assignment";
    case ErrorNumber::Printer: return "Printer error";
    case ErrorNumber::Application: return "Application-defined or object-defined error";
  }
  return "Application-defined or object-defined error";
}

}  // namespace

Error::Error(ErrorNumber number) : Error(number, standardDescription(number)) {}

}  // namespace vmgv

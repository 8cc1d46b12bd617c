// Fills the numbered placeholders of a message.
#pragma once

#include <initializer_list>
#include <span>
#include <string>

#include "support/automation/value.h"

namespace vmgv {

// Replaces every %1 by the first argument, then every %2 by the second, and so on: an argument's own "%2" is
// replaced in its turn, and "%10" begins with "%1". A placeholder without an argument stays.
// Throws Error for an argument that has no text (Null, Missing).
std::string FormatMessage(std::string text, std::span<const Value> args);

inline std::string FormatMessage(std::string text, std::initializer_list<Value> args) {
  return FormatMessage(std::move(text), std::span<const Value>(args.begin(), args.size()));
}

}  // namespace vmgv

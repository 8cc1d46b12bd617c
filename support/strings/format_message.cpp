#include "support/strings/format_message.h"

#include "support/automation/convert.h"

namespace vmgv {

std::string FormatMessage(std::string text, std::span<const Value> args) {
  for (std::size_t i = 0; i < args.size(); ++i) {
    const std::string placeholder = "%" + std::to_string(i + 1);
    const std::string argument = toText(args[i]);
    for (std::size_t at = 0; (at = text.find(placeholder, at)) != std::string::npos; at += argument.size()) {
      text.replace(at, placeholder.size(), argument);
    }
  }
  return text;
}

}  // namespace vmgv

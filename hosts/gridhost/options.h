// The command line of gridhost.
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>

#include "support/strings/string_service.h"

namespace vmgv {

enum class FrontEnd { Native, Headless };  // native: Qt, on Windows its own controls

struct Options {
  std::string data;                   // FILE or FILE#TABLE; empty: the demo table
  LanguageId language = kNoLanguage;  // as the library chooses
  FrontEnd frontEnd = FrontEnd::Native;
  std::optional<std::filesystem::path> script;
  std::filesystem::path out = "out";
  bool help = false;
};

class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

extern const char* const kUsage;

// The arguments behind the program's name, UTF-8. Throws UsageError.
Options readOptions(std::span<const std::string> arguments);

}  // namespace vmgv

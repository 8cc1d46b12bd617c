// What the core asks of the system outside its windows.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "support/automation/object.h"

namespace vmgv {

class Form;

// A desktop font as the platform stores it.
struct LogicalFont {
  std::string faceName;
  std::int32_t height = 0;  // pixels; negative: of the characters, positive: of the line
  std::int32_t weight = 400;
  bool italic = false, underline = false, strikeOut = false;
};
// Caption, small caption, menu, status and message font, in this order.
using DesktopFonts = std::array<LogicalFont, 5>;

enum class HelpCommand : std::uint32_t { Topic = 0, Contents = 1 };

class SystemPort {
 public:
  virtual ~SystemPort() = default;

  virtual std::optional<DesktopFonts> desktopFonts() = 0;  // nothing when the platform cannot tell
  virtual std::int32_t pixelsPerInch() = 0;                // vertically, of the screen
  virtual std::vector<std::string> screenFonts() = 0;      // the families' names, sorted, each once

  // Today's date in the desktop's medium form, as "21-Nov-26".
  virtual std::string mediumDate() = 0;

  // A machine-wide text setting; the default where it is missing or cannot be read.
  virtual std::string setting(const std::string& key, const std::string& name,
                              const std::string& defaultValue) = 0;
  // The folder that installed programs share, with a trailing separator.
  virtual std::string commonFilesFolder() = 0;
  virtual char pathSeparator() const = 0;
  virtual bool fileExists(const std::string& path) = 0;  // an ordinary file, not a folder

  // Opens a page of a help file and returns the help window's handle, or 0. A missing file is reported to
  // the user by the platform. `owner` may be null.
  virtual std::intptr_t openHelp(Form* owner, const std::string& file, HelpCommand command,
                                 const std::string& topic) = 0;

  // Error 429 where the program is not installed.
  virtual ObjectRef createObject(const std::string& programId) = 0;
};

}  // namespace vmgv

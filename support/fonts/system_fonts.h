// Gives dialogs the desktop's font instead of the one they were designed in.
#pragma once

#include <cstdint>
#include <optional>

#include "support/fonts/font_rules.h"
#include "support/forms/form.h"
#include "support/forms/system_port.h"
#include "support/strings/string_service.h"

namespace vmgv {

// The desktop's logical fonts by number.
enum class SystemFont : std::int32_t { Caption = 1, SmallCaption = 2, Menu = 3, Status = 4, Message = 5 };

class SystemFonts {
 public:
  SystemFonts(SystemPort& system, MlStringService& strings) noexcept : system_(system), strings_(strings) {}

  // A desktop font as a form's font; a plain font for a number outside 1 to 5; nothing when the platform
  // cannot tell its fonts. The character set is left at the font's own default.
  std::optional<Font> GetSystemFont(SystemFont kind);

  // The status bar's font, or Tahoma 8 where it cannot be read; asked for once and then kept, so that later
  // changes of the desktop do not mix fonts within one process.
  Font& DefaultFont();

  // The form's font, then those of all its controls: the default font's name and size, in the character set
  // of the current language. Nothing that fails is reported.
  void ApplyFormFont(Form& form);
  void ApplyControlFonts(Form& form);
  // The same for one control of a host.
  void ApplyControlFont(FontTarget& target);

 private:
  FontChoice choice();

  SystemPort& system_;
  MlStringService& strings_;
  std::optional<Font> default_;
};

// A logical font's height as a size: `height` over pixels per point, halves to the even neighbour, in single
// precision as it was always reckoned. -11 at 96 pixels per inch and 72 points per inch gives -8.
// Error 11 for a division by zero, 6 for a result beyond 16 bits.
std::int16_t HeightToPoints(std::int32_t height, std::int32_t pixelsPerInch, std::int32_t pointsPerInch);

}  // namespace vmgv

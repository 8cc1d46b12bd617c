// A font as forms carry it.
#pragma once

#include <cstdint>
#include <string>

namespace vmgv {

struct Font {
  std::string name = "Tahoma";
  double size = 8;  // points
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool strikethrough = false;
  std::int16_t charset = 0;  // the platform's character set number: 0 Western, 161 Greek
  bool operator==(const Font&) const = default;
};

}  // namespace vmgv

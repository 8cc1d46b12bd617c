// The texts of the string table by name; each value is the text's id.
#pragma once

#include <cstdint>

namespace vmgv {

enum class Text : std::int32_t {
#define VMG_STRING(id, name, english, greek) name = id,
#include "resources/strings.def"
#undef VMG_STRING
};

}  // namespace vmgv

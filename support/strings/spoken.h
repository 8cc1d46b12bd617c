// Names that are only read aloud, for controls that show a sign instead of a word. They are no part of the
// string table: hosts know its ids, and nothing of this is seen.
#pragma once

#include <cstdint>
#include <string>

namespace vmgv {

enum class Spoken { ShowColumn, ShowAllColumns, HideColumn, HideAllColumns, MoveUp, MoveDown };

// In the language that texts are served in: Greek, else English.
std::string spokenName(Spoken name, std::int32_t language);

}  // namespace vmgv

// A look into a compound file, the container of protected workbooks and of those in the format before 2007.
#pragma once

#include <string_view>

#include "adapters/workbook/files.h"

namespace vmgv::workbook {

bool isCompoundFile(std::string_view start);  // of its first 8 bytes
// Whether its directory names such a stream; false also where the directory is damaged.
bool compoundFileHas(const InputFile& file, std::u16string_view stream);

}  // namespace vmgv::workbook

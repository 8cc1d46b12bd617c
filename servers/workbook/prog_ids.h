// Further program ids under which the workbook answers, as a tester or an administrator chooses them.
#pragma once

#include <ole2.h>

#include <string>

#include "servers/common/registration.h"

namespace vmgv {

// The class must be registered in the same scope. Throws Error where the id belongs to another program.
void addProgId(const CLSID& clsid, const std::wstring& progId, Scope scope);

// Takes it out again; what is not ours stays, and no id is no error. While the other width of the server has
// the id too, it stays.
void removeProgId(const CLSID& clsid, const std::wstring& progId, Scope scope);
void removeAllProgIds(const CLSID& clsid, Scope scope);

}  // namespace vmgv

// Descriptions from the type library that is embedded in the server.
#pragma once

#include <ole2.h>

#include <string>

#include "frontends/com/com_ptr.h"

namespace vmgv {

// These need no registration. They throw Error.
ComPtr<ITypeLib> embeddedTypeLibrary();
ComPtr<ITypeInfo> embeddedTypeInfo(REFGUID id);  // an interface or class of the library

// Where the server lies.
std::wstring modulePath();

}  // namespace vmgv

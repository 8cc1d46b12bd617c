// Collections walked across the border.
#pragma once

#include <ole2.h>

#include <memory>

#include "frontends/com/com_ptr.h"
#include "support/automation/object.h"

namespace vmgv {

// A core collection for automation; Error 438 where the object is none.
ComPtr<IEnumVARIANT> exposeEnumeration(const ObjectRef& collection);

// A host's enumerator for the core.
std::unique_ptr<Enumeration> wrapEnumerator(ComPtr<IEnumVARIANT> enumerator);

}  // namespace vmgv

// Objects on their way between the core and automation. An object stays in its apartment's thread.
#pragma once

#include <ole2.h>

#include <string_view>

#include "frontends/com/com_ptr.h"
#include "support/automation/object.h"

namespace vmgv {

// A host's object as a core object; a core object that has crossed before comes back as itself. Null is
// nothing.
ObjectRef wrapDispatch(IDispatch* object);
// The same for an object that is known by IUnknown; Error 430 where it knows no automation.
ObjectRef wrapUnknown(IUnknown* object);

// A core object as IDispatch; a host's object comes back as itself. Nothing is null. As long as somebody
// holds it, the object is exposed by one and the same IDispatch.
ComPtr<IDispatch> exposeObject(const ObjectRef& object);

// CreateObject: Error 429 naming the program where it cannot be had.
ObjectRef createAutomationObject(std::string_view progId);

}  // namespace vmgv

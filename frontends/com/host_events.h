// The events of a host's object, heard by name.
#pragma once

#include <ole2.h>

#include <memory>

#include "support/automation/events.h"

namespace vmgv {

// As Object::listen. Their names come from the type information of the object's class; null where it has
// none, or no events.
std::shared_ptr<void> listenTo(IDispatch* object, EventSink& sink);

}  // namespace vmgv

// What a container does for the control that it hosts.
#pragma once

#include <string_view>

#include "support/automation/object.h"
#include "support/automation/value.h"
#include "support/forms/geometry.h"

namespace vmgv {

class ControlSite {
 public:
  virtual ~ControlSite() = default;
  virtual ObjectRef ambientFont() = 0;
  // A persisted property has a new value.
  virtual void propertyChanged(std::string_view property) = 0;
  virtual Size pixel() const = 0;  // in the container's units
  virtual void setSize(Size size) = 0;
};

// Where a container keeps a control's persisted properties.
class PropertyBag {
 public:
  virtual ~PropertyBag() = default;
  // The default where the property was never written.
  virtual Value read(std::string_view property, const Value& defaultValue) = 0;
  // A value equal to the default is not stored.
  virtual void write(std::string_view property, const Value& value, const Value& defaultValue) = 0;
};

}  // namespace vmgv

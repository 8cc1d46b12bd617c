#include "support/automation/object.h"

#include "support/automation/error.h"
#include "support/automation/value.h"

namespace vmgv {

std::unique_ptr<Enumeration> Object::enumerate() {
  throw Error(ErrorNumber::MemberNotFound, typeName() + " is not a collection");
}

std::shared_ptr<void> Object::listen(EventSink&) { return {}; }

MemberId Member::resolve(Object& object, ClassId id) const {
  const MemberId found = object.member(name_);
  class_ = id;
  id_ = found;
  return found;
}

void ObjectRef::failNotSet() { throw Error(ErrorNumber::ObjectNotSet); }

}  // namespace vmgv

// A core object as automation sees it.
#pragma once

#include <ole2.h>

#include "frontends/com/class_identity.h"
#include "frontends/com/com_object.h"
#include "frontends/com/exposed_events.h"
#include "support/automation/object.h"

namespace vmgv {

// Members keep their numbers: a MemberId is the DISPID. Named arguments are not taken, and there is no type
// information on members: clients call by name. An object that raises events has connection points.
class Exposure final : public ComObject<IDispatch, IClassIdentity> {
 public:
  explicit Exposure(ObjectRef object) noexcept : object_(std::move(object)) {}
  ~Exposure() override;

  const ObjectRef& object() const noexcept { return object_; }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID iid, LCID, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* exception, UINT* faultyArgument) override;
  HRESULT STDMETHODCALLTYPE GetClassIdentity(GUID* identity, BSTR* name) override;

 private:
  void* otherInterface(REFIID iid) noexcept override;

  ObjectRef object_;
  std::unique_ptr<ExposedEvents> events_;  // once somebody has asked
};

}  // namespace vmgv

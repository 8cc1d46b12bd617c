// A host's automation object as the core sees it.
#pragma once

#include <ole2.h>

#include <dispex.h>

#include "frontends/com/com_ptr.h"
#include "support/automation/object.h"

namespace vmgv {

// Reached by IDispatchEx where it has that (script objects), else by IDispatch.
class HostObject final : public Object {
 public:
  // `identity` is the object's IUnknown.
  HostObject(ComPtr<IDispatch> dispatch, ComPtr<IUnknown> identity) noexcept;
  ~HostObject() override;

  const ComPtr<IDispatch>& dispatch() const noexcept { return dispatch_; }
  IUnknown* identity() const noexcept { return identity_.get(); }

  std::string typeName() const override;
  ClassId classId() const noexcept override;
  MemberId member(std::string_view name) override;
  Value invoke(MemberId member, Access access, std::span<const Value> args) override;
  std::unique_ptr<Enumeration> enumerate() override;
  std::shared_ptr<void> listen(EventSink& sink) override;

 private:
  class Call;

  void learn() const noexcept;
  Value get(Call& call, MemberId member, std::span<const Value> args);
  HRESULT find(std::wstring_view name, MemberId& member);

  ComPtr<IDispatch> dispatch_;
  ComPtr<IUnknown> identity_;
  mutable bool known_ = false;  // whether the next two have been asked for
  mutable ComPtr<IDispatchEx> script_;
  mutable ClassId class_ = nullptr;
};

}  // namespace vmgv

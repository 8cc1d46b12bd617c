// The events of a core object as automation hears them: by connection point, with type information that says
// their names. They go out by the source interface that is the same for all our objects.
#pragma once

#include <ole2.h>
//
#include <olectl.h>

#include <memory>

#include "frontends/com/connections.h"
#include "support/automation/events.h"
#include "support/automation/object.h"

namespace vmgv {

// A part of what exposes the object, whose life it shares.
class ExposedEvents final : public IConnectionPointContainer, public IProvideClassInfo, private EventSink {
 public:
  ExposedEvents(IUnknown& owner, Object& object);
  ExposedEvents(const ExposedEvents&) = delete;
  ExposedEvents& operator=(const ExposedEvents&) = delete;

  bool areRaised() const noexcept { return listening_ != nullptr; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    return owner_.QueryInterface(iid, out);
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return owner_.AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return owner_.Release(); }
  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override;
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;
  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) override;

 private:
  void raised(std::string_view event, std::span<const Value> parameters) override;

  IUnknown& owner_;
  std::string className_;
  ConnectionPoint point_;
  std::shared_ptr<void> listening_;
};

}  // namespace vmgv

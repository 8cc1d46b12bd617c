// Where containers register for what a control tells them.
#pragma once

#include <ole2.h>
//
#include <olectl.h>

#include <vector>

#include "frontends/com/com_ptr.h"

namespace vmgv {

// One outgoing interface; a part of its control, whose life it shares.
class ConnectionPoint final : public IConnectionPoint {
 public:
  ConnectionPoint(IConnectionPointContainer& owner, REFIID outgoing) noexcept
      : owner_(owner), outgoing_(outgoing) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return owner_.AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return owner_.Release(); }
  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* iid) override;
  HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** container) override;
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** connections) override;

  const IID& outgoing() const noexcept { return outgoing_; }
  // Those registered now: one that goes while another is told something does no harm.
  std::vector<ComPtr<IUnknown>> sinks() const;

 private:
  struct Connection {
    DWORD cookie;
    ComPtr<IUnknown> sink;  // in fact the outgoing interface
  };

  IConnectionPointContainer& owner_;
  IID outgoing_;
  std::vector<Connection> connections_;
  DWORD lastCookie_ = 0;
};

// The connection points of a control, as its container walks them.
HRESULT enumerate(const std::vector<ConnectionPoint*>& points, IEnumConnectionPoints** out) noexcept;

}  // namespace vmgv

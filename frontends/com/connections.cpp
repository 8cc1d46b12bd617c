#include "frontends/com/connections.h"

#include <algorithm>

#include "frontends/com/com_object.h"
#include "frontends/com/wall.h"

namespace vmgv {
namespace {

CONNECTDATA handedOut(const CONNECTDATA& held) {
  held.pUnk->AddRef();
  return held;
}
void drop(const CONNECTDATA& held) { held.pUnk->Release(); }

IConnectionPoint* handedOut(IConnectionPoint* held) {
  held->AddRef();
  return held;
}
void drop(IConnectionPoint* held) { held->Release(); }

// An enumerator over a fixed list; owns a reference for each item.
template <class Interface, class Item>
class Enumerator final : public ComObject<Interface> {
 public:
  explicit Enumerator(const std::vector<Item>& items, std::size_t next = 0) : next_(next) {
    items_.reserve(items.size());
    for (const Item& item : items) items_.push_back(handedOut(item));
  }
  ~Enumerator() override {
    for (const Item& item : items_) drop(item);
  }

  HRESULT STDMETHODCALLTYPE Next(ULONG count, Item* out, ULONG* fetched) override {
    if (fetched) *fetched = 0;
    if (!out || (!fetched && count != 1)) return E_POINTER;
    ULONG given = 0;
    for (; given < count && next_ < items_.size(); ++given) out[given] = handedOut(items_[next_++]);
    if (fetched) *fetched = given;
    return given == count ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
    const std::size_t left = items_.size() - next_;
    next_ += std::min<std::size_t>(count, left);
    return count <= left ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Reset() override {
    next_ = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Clone(Interface** out) override {
    if (!out) return E_POINTER;
    *out = nullptr;
    return guarded([&] { *out = makeComObject<Enumerator>(items_, next_).detach(); });
  }

 private:
  std::vector<Item> items_;
  std::size_t next_;
};

}  // namespace

HRESULT ConnectionPoint::QueryInterface(REFIID iid, void** out) {
  if (!out) return E_POINTER;
  *out = nullptr;
  if (iid != IID_IUnknown && iid != IID_IConnectionPoint) return E_NOINTERFACE;
  *out = this;
  AddRef();
  return S_OK;
}

HRESULT ConnectionPoint::GetConnectionInterface(IID* iid) {
  if (!iid) return E_POINTER;
  *iid = outgoing_;
  return S_OK;
}

HRESULT ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container) {
  if (!container) return E_POINTER;
  *container = &owner_;
  owner_.AddRef();
  return S_OK;
}

HRESULT ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) {
  if (cookie) *cookie = 0;
  if (!sink || !cookie) return E_POINTER;
  return guarded([&] {
    ComPtr<IUnknown> wanted;
    if (FAILED(sink->QueryInterface(outgoing_, wanted.putVoid()))) return CONNECT_E_CANNOTCONNECT;
    connections_.push_back({++lastCookie_, wanted});
    *cookie = lastCookie_;
    return S_OK;
  });
}

HRESULT ConnectionPoint::Unadvise(DWORD cookie) {
  const auto found = std::find_if(connections_.begin(), connections_.end(),
                                  [&](const Connection& connection) { return connection.cookie == cookie; });
  if (found == connections_.end()) return CONNECT_E_NOCONNECTION;
  const Connection gone = std::move(*found);  // its end may call back
  connections_.erase(found);
  return S_OK;
}

HRESULT ConnectionPoint::EnumConnections(IEnumConnections** connections) {
  if (!connections) return E_POINTER;
  *connections = nullptr;
  return guarded([&] {
    std::vector<CONNECTDATA> items;
    for (const Connection& connection : connections_)
      items.push_back({connection.sink.get(), connection.cookie});
    *connections = makeComObject<Enumerator<IEnumConnections, CONNECTDATA>>(items).detach();
  });
}

std::vector<ComPtr<IUnknown>> ConnectionPoint::sinks() const {
  std::vector<ComPtr<IUnknown>> sinks;
  for (const Connection& connection : connections_) sinks.push_back(connection.sink);
  return sinks;
}

HRESULT enumerate(const std::vector<ConnectionPoint*>& points, IEnumConnectionPoints** out) noexcept {
  if (!out) return E_POINTER;
  *out = nullptr;
  return guarded([&] {
    const std::vector<IConnectionPoint*> items(points.begin(), points.end());
    *out = makeComObject<Enumerator<IEnumConnectionPoints, IConnectionPoint*>>(items).detach();
  });
}

}  // namespace vmgv

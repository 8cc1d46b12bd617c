#include "frontends/com/bridge.h"

#include <string>
#include <typeinfo>
#include <unordered_map>
#include <utility>

#include "frontends/com/registry.h"
#include "frontends/com/text.h"
#include "frontends/com/wall.h"

namespace vmgv {
namespace {

// Neither side is counted here: an entry goes with its object.
struct Border {
  std::unordered_map<const Object*, Exposure*> exposed;    // by the core object
  std::unordered_map<const IUnknown*, Exposure*> outside;  // the same, by what the host knows
  std::unordered_map<const IUnknown*, HostObject*> hosts;  // by the host object's identity
};

// Each apartment has its own, as long as anything stands on both sides.
thread_local Border* currentBorder = nullptr;

Border& border() {
  if (!currentBorder) currentBorder = new Border;
  return *currentBorder;
}

void dropIfEmpty() noexcept {
  if (currentBorder->exposed.empty() && currentBorder->outside.empty() && currentBorder->hosts.empty()) {
    delete std::exchange(currentBorder, nullptr);
  }
}

template <class Map, class Key>
auto* found(const Map& map, Key key) {
  const auto entry = map.find(key);
  return entry == map.end() ? nullptr : entry->second;
}

}  // namespace

void forget(const Exposure& exposure) noexcept {
  if (!currentBorder) return;
  currentBorder->exposed.erase(exposure.object().get());
  currentBorder->outside.erase(static_cast<const IDispatch*>(&exposure));
  dropIfEmpty();
}

void forget(const HostObject& object) noexcept {
  if (!currentBorder) return;
  currentBorder->hosts.erase(object.identity());
  dropIfEmpty();
}

ObjectRef wrapDispatch(IDispatch* object) {
  if (!object) return nullptr;
  if (const Exposure* own = found(border().outside, object)) return own->object();
  const ComPtr<IDispatch> dispatch(object);
  const auto identity = dispatch.as<IUnknown>();
  if (!identity) throw Error(ErrorNumber::ObjectRequired, "The object does not tell its identity");
  if (const Exposure* own = found(border().outside, identity.get())) return own->object();
  if (HostObject* known = found(border().hosts, identity.get())) return known;
  ObjectRef wrapped = makeObject<HostObject>(dispatch, identity);
  border().hosts.emplace(identity.get(), static_cast<HostObject*>(wrapped.get()));
  return wrapped;
}

ObjectRef wrapUnknown(IUnknown* object) {
  if (!object) return nullptr;
  const auto dispatch = ComPtr<IUnknown>(object).as<IDispatch>();
  if (!dispatch) throw errorOf(E_NOINTERFACE);
  return wrapDispatch(dispatch.get());
}

ComPtr<IDispatch> exposeObject(const ObjectRef& object) {
  if (!object) return nullptr;
  if (typeid(*object) == typeid(HostObject)) return static_cast<HostObject&>(*object).dispatch();
  if (Exposure* known = found(border().exposed, object.get())) return ComPtr<IDispatch>(known);
  auto made = makeComObject<Exposure>(object);
  border().exposed.emplace(object.get(), made.get());
  border().outside.emplace(static_cast<IDispatch*>(made.get()), made.get());
  return ComPtr<IDispatch>(made.get());
}

ObjectRef createAutomationObject(std::string_view progId) {
  CLSID id;
  ComPtr<IDispatch> object;
  HRESULT result = CLSIDFromProgID(wide(progId).c_str(), &id);
  if (SUCCEEDED(result)) {
    result = CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER, IID_IDispatch,
                              object.putVoid());
  }
  if (FAILED(result)) {
    throw Error(ErrorNumber::CannotCreateObject,
                std::string(progId) + ": " + Error(ErrorNumber::CannotCreateObject).description());
  }
  return wrapDispatch(object.get());
}

}  // namespace vmgv

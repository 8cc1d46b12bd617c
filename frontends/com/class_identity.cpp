#include "frontends/com/class_identity.h"

#include <ocidl.h>

#include <cstring>
#include <mutex>
#include <unordered_set>

#include "frontends/com/com_ptr.h"
#include "frontends/com/text.h"

namespace vmgv {
namespace {

struct GuidHash {
  std::size_t operator()(const GUID& id) const noexcept {
    std::size_t halves[16 / sizeof(std::size_t)];
    std::memcpy(halves, &id, sizeof id);
    std::size_t mixed = 0;
    for (const std::size_t half : halves) mixed = mixed * 31 + half;
    return mixed;
  }
};

GUID freshGuid() noexcept {
  GUID id;
  CoCreateGuid(&id);
  return id;
}

ComPtr<ITypeInfo> typeInfoOf(IDispatch* object) noexcept {
  ComPtr<ITypeInfo> info;
  if (FAILED(object->GetTypeInfo(0, LOCALE_SYSTEM_DEFAULT, info.put()))) info.detach();
  return info;
}

}  // namespace

GUID identityOf(ClassId id) noexcept {
  static const GUID module = freshGuid();
  GUID identity = module;
  const auto address = reinterpret_cast<std::uintptr_t>(id);
  std::uintptr_t part;
  std::memcpy(&part, identity.Data4, sizeof part);
  part ^= address;
  std::memcpy(identity.Data4, &part, sizeof part);
  return identity;
}

ClassId interned(const GUID& identity) {
  static std::mutex lock;
  static std::unordered_set<GUID, GuidHash> identities;
  const std::lock_guard guard(lock);
  return &*identities.insert(identity).first;
}

GUID toldIdentity(IDispatch* object) noexcept {
  GUID identity = GUID_NULL;
  if (const auto own = ComPtr<IDispatch>(object).as<IClassIdentity>()) {
    if (SUCCEEDED(own->GetClassIdentity(&identity, nullptr))) return identity;
  }
  const ComPtr<ITypeInfo> info = typeInfoOf(object);
  TYPEATTR* attributes = nullptr;
  if (info && SUCCEEDED(info->GetTypeAttr(&attributes)) && attributes) {
    identity = attributes->guid;
    info->ReleaseTypeAttr(attributes);
  }
  return identity;
}

std::string toldClassName(IDispatch* object) {
  const ComPtr<IDispatch> self(object);
  BString name;
  if (const auto own = self.as<IClassIdentity>()) {
    if (SUCCEEDED(own->GetClassIdentity(nullptr, name.put()))) return narrow(name.view());
  }
  ComPtr<ITypeInfo> info;
  if (const auto provider = self.as<IProvideClassInfo>()) {
    if (FAILED(provider->GetClassInfo(info.put()))) info.detach();
  }
  if (!info) info = typeInfoOf(object);
  if (!info || FAILED(info->GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr))) return {};
  std::string text = narrow(name.view());
  text.erase(
      0, text.find_first_not_of('_'));  // a class's own interface is called by its name with "_" before it
  return text;
}

}  // namespace vmgv

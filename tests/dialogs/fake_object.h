// Late-bound objects made of lambdas, and objects that fail on demand.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "support/automation/class_table.h"
#include "support/automation/convert.h"

namespace vmgv {

// Members by name; the arguments of a put end with the new value. The member "" is the default one.
class FakeObject final : public Object {
 public:
  using Handler = std::function<Value(Access, Args)>;

  explicit FakeObject(std::string typeName) : typeName_(std::move(typeName)) {}
  FakeObject& on(const std::string& name, Handler handler) {
    const std::string lower = lowerCase(name);
    if (!ids_.contains(lower)) ids_[lower] = lower.empty() ? 0 : static_cast<MemberId>(ids_.size() + 1);
    handlers_[ids_[lower]] = std::move(handler);
    return *this;
  }

  std::string typeName() const override { return typeName_; }
  ClassId classId() const noexcept override { return nullptr; }
  MemberId member(std::string_view name) override {
    const auto found = ids_.find(lowerCase(name));
    if (found == ids_.end())
      throw Error(ErrorNumber::MemberNotFound, typeName_ + " lacks " + std::string(name));
    return found->second;
  }
  Value invoke(MemberId id, Access access, std::span<const Value> args) override {
    const auto found = handlers_.find(id);
    if (found == handlers_.end()) throw Error(ErrorNumber::MemberNotFound);
    return found->second(access, args);
  }

 private:
  std::string typeName_;
  std::map<std::string, MemberId> ids_;
  std::map<MemberId, Handler> handlers_;
};

// A new object behind a reference, to be given its members.
inline FakeObject* make(ObjectRef& ref, const char* typeName) {
  auto* object = new FakeObject(typeName);
  ref = object;
  return object;
}

// Counts every call of a whole tree of objects and fails one of them.
struct Fault {
  static constexpr std::int32_t kNumber = 4711;
  static constexpr const char* kDescription = "injected";
  int failAt = 0;  // the number of the failing call, from 1; 0: none
  int calls = 0;
  std::string failed;  // the member that failed
};

// Stands before an object; what the object answers stands behind a FaultyObject too.
class FaultyObject final : public Object {
 public:
  FaultyObject(ObjectRef target, Fault& fault) : target_(std::move(target)), fault_(fault) {}

  std::string typeName() const override { return (*target_).typeName(); }
  ClassId classId() const noexcept override { return nullptr; }
  MemberId member(std::string_view name) override {
    lastName_ = name;
    return (*target_).member(name);
  }
  Value invoke(MemberId id, Access access, std::span<const Value> args) override {
    if (++fault_.calls == fault_.failAt) {
      fault_.failed = lastName_;
      throw Error(Fault::kNumber, Fault::kDescription);
    }
    std::vector<Value> bare;
    for (const Value& arg : args) {
      const ObjectRef* object = arg.as<ObjectRef>();
      auto* faulty = object ? dynamic_cast<FaultyObject*>(object->get()) : nullptr;
      bare.push_back(faulty ? Value(faulty->target_) : arg);
    }
    Value result = (*target_).invoke(id, access, bare);
    const ObjectRef* object = result.as<ObjectRef>();
    if (object && *object) return ObjectRef(makeObject<FaultyObject>(*object, fault_));
    return result;
  }

 private:
  ObjectRef target_;
  Fault& fault_;
  std::string lastName_;
};

}  // namespace vmgv

// Late-bound objects for tests, and objects that fail on demand.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "support/automation/class_table.h"
#include "support/automation/convert.h"

namespace vmgv {

// Answers by the name of the member; "" is the default one. The arguments of a put end with the new value.
class NamedObject : public Object {
 public:
  explicit NamedObject(std::string typeName) : typeName_(std::move(typeName)) {}
  std::string typeName() const override { return typeName_; }
  ClassId classId() const noexcept override { return nullptr; }
  MemberId member(std::string_view name) override {
    names_.emplace_back(name);
    return static_cast<MemberId>(names_.size() - 1);
  }
  Value invoke(MemberId id, Access access, std::span<const Value> args) override {
    const std::string name = names_.at(static_cast<std::size_t>(id));
    return answer(name, access, args);
  }

 protected:
  virtual Value answer(const std::string& name, Access access, Args args) = 0;

 private:
  std::string typeName_;
  std::vector<std::string> names_{""};
};

// Counts every call of a whole tree of objects and fails one of them.
struct Fault {
  static constexpr std::int32_t kNumber = 4711;
  static constexpr const char* kDescription = "injected";
  int failAt = 0;  // the number of the failing call, from 1; 0: none
  int calls = 0;
  std::string failed;           // the member that failed
  std::set<std::string> asked;  // "Columns.Count": every member that was called, "Item" for a default one
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
    fault_.asked.insert(typeName() + "." + (id == kDefaultMember ? "Item" : lastName_));
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
  std::shared_ptr<void> listen(EventSink& sink) override { return (*target_).listen(sink); }

 private:
  ObjectRef target_;
  Fault& fault_;
  std::string lastName_;
};

}  // namespace vmgv

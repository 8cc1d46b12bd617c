// How a C++ class shows its members to late-bound callers: one table a class.
#pragma once

#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "support/automation/error.h"
#include "support/automation/value.h"

namespace vmgv {

// Positional arguments of one call. An argument left out reads as Missing.
class Args {
 public:
  Args(std::span<const Value> values) noexcept : values_(values) {}  // NOLINT: a list of values is arguments

  std::size_t size() const noexcept { return values_.size(); }
  bool has(std::size_t i) const noexcept { return i < values_.size() && !values_[i].isMissing(); }
  const Value& operator[](std::size_t i) const noexcept {
    return i < values_.size() ? values_[i] : missing();
  }

 private:
  static const Value& missing() noexcept {
    static const Value value{Missing{}};
    return value;
  }
  std::span<const Value> values_;
};

// ASCII lower case: member names hold no other letters.
inline std::string lowerCase(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
  }
  return lower;
}

// The members of class T:
//   const ClassTable<Column>& Column::table() {
//     static const ClassTable<Column> table("Column", {
//         {"Caption", 0, [](Column& c, Args) -> Value { return c.caption(); }},
//         {"Visible", 0, [](Column& c, Args) -> Value { return c.visible(); },
//                        [](Column& c, Args, const Value& v) { c.setVisible(toBoolean(v)); }},
//         {"Value", 1, ...one index argument...},
//     }, "Caption");
//     return table;
//   }
template <class T>
class ClassTable {
 public:
  using Getter = Value (*)(T&, Args);               // reads a property or runs a method
  using Putter = void (*)(T&, Args, const Value&);  // index arguments, then the new value
  struct Entry {                                    // a member: `put` null where it is read-only
    const char* name = "";
    std::size_t arguments = 0;  // at most; more of them go to the default member of what a get returns
    Getter get = nullptr;
    Putter put = nullptr;
  };

  ClassTable(std::string typeName, std::initializer_list<Entry> entries, std::string_view defaultMember = {})
      : typeName_(std::move(typeName)), entries_(entries) {
    for (std::size_t i = 0; i < entries_.size(); ++i) {
      ids_.emplace(lowerCase(entries_[i].name), static_cast<MemberId>(i + 1));
      if (entries_[i].name == defaultMember) default_ = &entries_[i];
    }
  }
  ClassTable(const ClassTable&) = delete;
  ClassTable& operator=(const ClassTable&) = delete;

  const std::string& typeName() const noexcept { return typeName_; }

  MemberId member(std::string_view name) const {
    const auto found = ids_.find(lowerCase(name));
    if (found == ids_.end()) throw notFound(std::string(name));
    return found->second;
  }

  // The plain case of a get or call, for callers that must be quick; null: invoke() sees to it.
  Getter getter(MemberId id, std::size_t arguments) const noexcept {
    const auto place = static_cast<std::size_t>(id) - 1;
    return place < entries_.size() && arguments <= entries_[place].arguments ? entries_[place].get : nullptr;
  }

  Value invoke(T& object, MemberId id, Access access, std::span<const Value> args) const {
    const Entry& entry = at(id);
    if (access == Access::Get || access == Access::Call) {
      if (!entry.get) throw notFound(entry.name);
      if (args.size() <= entry.arguments) return entry.get(object, args);
      if (access == Access::Call) throw Error(ErrorNumber::ArgumentCount);
      const ObjectRef result = entry.get(object, args.first(0)).object();
      return (*result).invoke(kDefaultMember, Access::Get, args);
    }
    if (args.empty() || args.size() > entry.arguments + 1) throw Error(ErrorNumber::ArgumentCount);
    if (!entry.put) throw Error(ErrorNumber::MemberNotFound, typeName_ + "." + entry.name + " is read-only");
    entry.put(object, args.first(args.size() - 1), args.back());
    return {};
  }

 private:
  const Entry& at(MemberId id) const {
    if (id == kDefaultMember && default_) return *default_;
    if (id < 1 || static_cast<std::size_t>(id) > entries_.size()) throw notFound("a default member");
    return entries_[static_cast<std::size_t>(id) - 1];
  }
  Error notFound(const std::string& name) const {
    return {ErrorNumber::MemberNotFound, typeName_ + " has no member " + name};
  }

  std::string typeName_;
  std::vector<Entry> entries_;
  const Entry* default_ = nullptr;
  std::unordered_map<std::string, MemberId> ids_;
};

// Base of a class that has a static `table()`.
template <class T>
class Exposed : public Object {
 public:
  std::string typeName() const override { return table_.typeName(); }
  ClassId classId() const noexcept override { return &table_; }
  MemberId member(std::string_view name) override { return table_.member(name); }
  Value invoke(MemberId id, Access access, std::span<const Value> args) override {
    auto& self = static_cast<T&>(*this);
    if (access == Access::Get || access == Access::Call) {
      if (const auto get = table_.getter(id, args.size())) return get(self, args);
    }
    return table_.invoke(self, id, access, args);
  }

 private:
  const ClassTable<T>& table_ = T::table();  // asked once: a call would pay for it each time
};

}  // namespace vmgv

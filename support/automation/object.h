// A late-bound object: members are found by name once, then reached by number.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace vmgv {

class EventSink;
class Value;

using MemberId = std::int32_t;
// Objects with the same ClassId number their members alike; null means "never cache a number".
using ClassId = const void*;

// The member that an object answers with when it is used like a function or a value.
inline constexpr MemberId kDefaultMember = 0;

enum class Access : std::uint8_t { Get, Call, Put, PutRef };

// Walks a collection in its own order.
class Enumeration {
 public:
  virtual ~Enumeration() = default;
  // Puts the next item into `item`; false at the end.
  virtual bool next(Value& item) = 0;
};

// Reference-counted by ObjectRef. One thread: counts are plain integers.
class Object {
 public:
  Object() = default;
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;
  virtual ~Object() = default;

  // The class name as TypeName() shows it.
  virtual std::string typeName() const = 0;
  virtual ClassId classId() const noexcept = 0;
  // The number of a member, whatever the name's case; throws Error 438 naming the member and the class.
  virtual MemberId member(std::string_view name) = 0;
  // Arguments are positional. For Put and PutRef the last one is the new value.
  // Throws Error; the object is then as it was before the failing step.
  virtual Value invoke(MemberId member, Access access, std::span<const Value> args) = 0;
  // Throws Error 438 where the object is no collection.
  virtual std::unique_ptr<Enumeration> enumerate();
  // Tells the sink of the object's events until the connection is dropped; null where it raises none.
  virtual std::shared_ptr<void> listen(EventSink& sink);

  void retain() noexcept { ++references_; }
  void release() noexcept {
    if (--references_ == 0) delete this;
  }
  std::int32_t references() const noexcept { return references_; }

 private:
  std::int32_t references_ = 0;
};

// A call site's memory of one member: the name is looked up once for each class of object seen.
class Member {
 public:
  constexpr Member(const char* name) noexcept : name_(name) {}  // NOLINT: a name is a member
  constexpr explicit Member(std::string_view name) noexcept : name_(name) {}

  std::string_view name() const noexcept { return name_; }
  MemberId in(Object& object) const {
    const ClassId id = object.classId();
    return id != nullptr && id == class_ ? id_ : resolve(object, id);
  }

 private:
  MemberId resolve(Object& object, ClassId id) const;

  std::string_view name_;
  mutable ClassId class_ = nullptr;
  mutable MemberId id_ = kDefaultMember;
};

// A counted reference to an object, or to nothing. Using nothing throws Error 91.
class ObjectRef {
 public:
  ObjectRef() noexcept = default;
  ObjectRef(std::nullptr_t) noexcept {}                   // NOLINT: nothing is a reference
  ObjectRef(Object* object) noexcept : object_(object) {  // NOLINT: a pointer is a reference
    if (object_) object_->retain();
  }
  ObjectRef(const ObjectRef& other) noexcept : ObjectRef(other.object_) {}
  ObjectRef(ObjectRef&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  ObjectRef& operator=(ObjectRef other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~ObjectRef() {
    if (object_) object_->release();
  }

  explicit operator bool() const noexcept { return object_ != nullptr; }
  Object* get() const noexcept { return object_; }
  Object& operator*() const { return required(); }
  bool operator==(const ObjectRef& other) const noexcept { return object_ == other.object_; }

  // Late-bound access; arguments are anything a Value can be made of.
  template <class... A>
  Value get(const Member& member, A&&... args) const;
  template <class... A>
  Value call(const Member& member, A&&... args) const;
  template <class... A>  // index arguments first, the new value last
  void put(const Member& member, A&&... args) const;
  template <class... A>
  void putRef(const Member& member, A&&... args) const;
  // A member that must be an object (Error 424 where it is not).
  template <class... A>
  ObjectRef object(const Member& member, A&&... args) const;
  // The default member with arguments: columns.item(3).
  template <class... A>
  Value item(A&&... args) const;

 private:
  Object& required() const {
    if (!object_) failNotSet();
    return *object_;
  }
  [[noreturn]] static void failNotSet();

  Object* object_ = nullptr;
};

template <class T, class... A>
ObjectRef makeObject(A&&... args) {
  return ObjectRef(new T(std::forward<A>(args)...));
}

}  // namespace vmgv

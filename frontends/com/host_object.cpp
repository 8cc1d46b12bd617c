#include "frontends/com/host_object.h"

#include <atomic>
#include <string>

#include "frontends/com/class_identity.h"
#include "frontends/com/dispatch_call.h"
#include "frontends/com/enumerators.h"
#include "frontends/com/host_events.h"
#include "frontends/com/registry.h"
#include "frontends/com/text.h"
#include "frontends/com/wall.h"

namespace vmgv {
namespace {

// A script's value that is used like a function: run-time error 5002 of JScript.
constexpr HRESULT kFunctionExpected = static_cast<HRESULT>(0x800A138A);

// An engine that has told its user of an error keeps it from the caller: SCRIPT_E_REPORTED.
constexpr HRESULT kReported = static_cast<HRESULT>(0x80020101);

// A number for one object alone. Odd, and never given twice, so that it is no address and no earlier
// object's.
ClassId freshClassId() noexcept {
  static std::atomic<std::uintptr_t> last = 1;
  return reinterpret_cast<ClassId>(last += 2);
}

bool isProxy(IUnknown* object) noexcept {
  static constexpr IID kProxyManager = {8, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};  // IProxyManager
  ComPtr<IUnknown> manager;
  return SUCCEEDED(object->QueryInterface(kProxyManager, manager.putVoid()));
}

}  // namespace

// One call with its arguments, tried in one way after another.
class HostObject::Call {
 public:
  Call(HostObject& object, std::span<const Value> values) : object_(object), arguments_(values) {}

  // What was tried must have failed before it ran: no member of that kind, not with so many arguments.
  bool mayTryOtherwise() {
    return result_ == DISP_E_MEMBERNOTFOUND || result_ == DISP_E_BADPARAMCOUNT ||
           (result_ == DISP_E_EXCEPTION && exception_.code() == kFunctionExpected);
  }
  bool invoke(MemberId member, WORD flags) {
    static DISPID newValue = DISPID_PROPERTYPUT;
    DISPPARAMS parameters = arguments_.parameters;
    if (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) {
      parameters.rgdispidNamedArgs = &newValue;
      parameters.cNamedArgs = 1;
    }
    exception_.clear();
    result_ = object_.script_ ? object_.script_->InvokeEx(member, LOCALE_USER_DEFAULT, flags, &parameters,
                                                          answer_.put(), &exception_, nullptr)
                              : object_.dispatch_->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags,
                                                          &parameters, answer_.put(), &exception_, nullptr);
    return SUCCEEDED(result_);
  }
  Value answer() {
    if (FAILED(result_)) fail();
    return answer_.value();
  }

 private:
  [[noreturn]] void fail() {
    if (result_ == kReported) throw Error(kReported, "A script has failed and reported its error");
    if (result_ != DISP_E_EXCEPTION) throw errorOf(result_);
    exception_.raise();
  }

  HostObject& object_;
  CallArguments arguments_;
  Variant answer_;
  CallException exception_;
  HRESULT result_ = S_OK;
};

HostObject::HostObject(ComPtr<IDispatch> dispatch, ComPtr<IUnknown> identity) noexcept
    : dispatch_(std::move(dispatch)), identity_(std::move(identity)) {}

HostObject::~HostObject() { forget(*this); }

// Each question to an object of another process is a journey: such a one is taken as it comes.
void HostObject::learn() const noexcept {
  known_ = true;
  const bool inProcess = !isProxy(identity_.get());
  if (inProcess) script_ = dispatch_.as<IDispatchEx>();
  if (script_) return;  // its members come and go
  try {
    const GUID told = inProcess ? toldIdentity(dispatch_.get()) : GUID_NULL;
    class_ = told != GUID_NULL ? interned(told) : freshClassId();
  } catch (const std::bad_alloc&) {
    class_ = nullptr;
  }
}

ClassId HostObject::classId() const noexcept {
  if (!known_) learn();
  return class_;
}

// A script's objects are not asked: there is nothing reliable to hear.
std::string HostObject::typeName() const {
  if (!known_) learn();
  if (script_) return "Object";
  const std::string told = toldClassName(dispatch_.get());
  return told.empty() ? "Object" : told;
}

HRESULT HostObject::find(std::wstring_view name, MemberId& member) {
  DISPID id = DISPID_UNKNOWN;
  HRESULT result;
  if (script_) {
    const BString text(name);
    result = script_->GetDispID(text.get(), fdexNameCaseSensitive, &id);
    if (FAILED(result)) result = script_->GetDispID(text.get(), fdexNameCaseInsensitive, &id);
  } else {
    std::wstring text(name);
    LPOLESTR start = text.data();
    result = dispatch_->GetIDsOfNames(IID_NULL, &start, 1, LOCALE_USER_DEFAULT, &id);
  }
  member = id;
  return SUCCEEDED(result) && id == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : result;
}

MemberId HostObject::member(std::string_view name) {
  if (!known_) learn();
  MemberId member;
  const HRESULT result = find(wide(name), member);
  if (result == DISP_E_UNKNOWNNAME || result == DISP_E_MEMBERNOTFOUND) {
    throw Error(ErrorNumber::MemberNotFound, typeName() + " has no member " + std::string(name));
  }
  check(result, name);
  return member;
}

Value HostObject::invoke(MemberId member, Access access, std::span<const Value> args) {
  if (!known_) learn();
  const ObjectRef kept(this);  // the host may let go of the object meanwhile
  Call call(*this, args);
  switch (access) {
    case Access::Get: return get(call, member, args);
    case Access::Call:
      if (!call.invoke(member, DISPATCH_METHOD) && call.mayTryOtherwise()) {
        call.invoke(member, DISPATCH_METHOD | DISPATCH_PROPERTYGET);
      }
      break;
    case Access::Put:
      if (!call.invoke(member, DISPATCH_PROPERTYPUT) && call.mayTryOtherwise()) {
        call.invoke(member, DISPATCH_PROPERTYPUTREF);
      }
      break;
    case Access::PutRef:
      if (!call.invoke(member, DISPATCH_PROPERTYPUTREF) && call.mayTryOtherwise()) {
        call.invoke(member, DISPATCH_PROPERTYPUT);
      }
      break;
  }
  return call.answer();
}

// A property, or a function's result. What is neither with these arguments may be a property without any that
// is an object with a default member. A script reports what fails in it to its user at once, so that its
// objects are asked first for what they are most likely to have: a value without arguments, an Item of a
// collection.
Value HostObject::get(Call& call, MemberId member, std::span<const Value> args) {
  constexpr WORD kProperty = DISPATCH_PROPERTYGET, kEither = DISPATCH_PROPERTYGET | DISPATCH_METHOD;
  const bool valueOfScript = script_ && args.empty();
  MemberId item;
  if (script_ && member == kDefaultMember && !args.empty() && SUCCEEDED(find(L"Item", item))) member = item;

  const bool answered = call.invoke(member, valueOfScript ? kProperty : kEither) || !call.mayTryOtherwise() ||
                        call.invoke(member, valueOfScript ? kEither : kProperty) || !call.mayTryOtherwise();
  if (answered || args.empty() || member == kDefaultMember) return call.answer();
  Call without(*this, {});
  if (!without.invoke(member, kProperty)) return call.answer();
  return (*without.answer().object()).invoke(kDefaultMember, Access::Get, args);
}

std::shared_ptr<void> HostObject::listen(EventSink& sink) { return listenTo(dispatch_.get(), sink); }

std::unique_ptr<Enumeration> HostObject::enumerate() {
  if (!known_) learn();
  Variant answer;
  DISPPARAMS nothing{};
  const WORD flags = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
  const HRESULT result = script_ ? script_->InvokeEx(DISPID_NEWENUM, LOCALE_USER_DEFAULT, flags, &nothing,
                                                     &answer, nullptr, nullptr)
                                 : dispatch_->Invoke(DISPID_NEWENUM, IID_NULL, LOCALE_USER_DEFAULT, flags,
                                                     &nothing, &answer, nullptr, nullptr);
  ComPtr<IEnumVARIANT> enumerator;
  if (SUCCEEDED(result) && (V_VT(&answer) == VT_UNKNOWN || V_VT(&answer) == VT_DISPATCH)) {
    enumerator = ComPtr<IUnknown>(V_UNKNOWN(&answer)).as<IEnumVARIANT>();
  }
  if (!enumerator) return Object::enumerate();
  return wrapEnumerator(std::move(enumerator));
}

}  // namespace vmgv

#include "frontends/com/host_events.h"

#include <olectl.h>

#include <map>
#include <vector>

#include "frontends/com/com_object.h"
#include "frontends/com/text.h"
#include "frontends/com/variant.h"
#include "frontends/com/wall.h"

namespace vmgv {
namespace {

struct Source {
  IID iid = GUID_NULL;
  std::map<DISPID, std::string> events;
};

// Attributes that the type information keeps for itself until they are given back.
class Attributes {
 public:
  explicit Attributes(ITypeInfo& info) : info_(info) {
    check(info.GetTypeAttr(&attributes_), "type information");
  }
  Attributes(const Attributes&) = delete;
  Attributes& operator=(const Attributes&) = delete;
  ~Attributes() { info_.ReleaseTypeAttr(attributes_); }
  const TYPEATTR* operator->() const noexcept { return attributes_; }

 private:
  ITypeInfo& info_;
  TYPEATTR* attributes_ = nullptr;
};

Source readSource(ITypeInfo& info) {
  Source source;
  const Attributes attributes(info);
  source.iid = attributes->guid;
  for (UINT i = 0; i < attributes->cFuncs; ++i) {
    FUNCDESC* function = nullptr;
    if (FAILED(info.GetFuncDesc(i, &function))) continue;
    const DISPID member = function->memid;
    info.ReleaseFuncDesc(function);
    BString name;
    UINT count = 0;
    if (SUCCEEDED(info.GetNames(member, name.put(), 1, &count)) && count == 1)
      source.events.emplace(member, narrow(name.view()));
  }
  return source;
}

// What the class says of the events that it raises by default.
ComPtr<ITypeInfo> defaultSource(ITypeInfo& classInfo) {
  const Attributes attributes(classInfo);
  for (UINT i = 0; i < attributes->cImplTypes; ++i) {
    constexpr int kWanted = IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE;
    int flags = 0;
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> source;
    if (SUCCEEDED(classInfo.GetImplTypeFlags(i, &flags)) && (flags & kWanted) == kWanted &&
        SUCCEEDED(classInfo.GetRefTypeOfImplType(i, &reference)) &&
        SUCCEEDED(classInfo.GetRefTypeInfo(reference, source.put()))) {
      return source;
    }
  }
  return {};
}

// Where the class is not told: what the library of the object's interface knows of its connection points.
ComPtr<ITypeInfo> sourceInLibrary(IDispatch& object, IConnectionPointContainer& container) {
  ComPtr<ITypeInfo> info, source;
  ComPtr<ITypeLib> library;
  ComPtr<IEnumConnectionPoints> points;
  UINT place = 0;
  if (FAILED(object.GetTypeInfo(0, LOCALE_USER_DEFAULT, info.put())) || !info ||
      FAILED(info->GetContainingTypeLib(library.put(), &place)) ||
      FAILED(container.EnumConnectionPoints(points.put()))) {
    return {};
  }
  ComPtr<IConnectionPoint> point;
  while (!source && points->Next(1, point.put(), nullptr) == S_OK) {
    IID iid = GUID_NULL;
    if (SUCCEEDED(point->GetConnectionInterface(&iid)) && iid != IID_IPropertyNotifySink)
      library->GetTypeInfoOfGuid(iid, source.put());
  }
  return source;
}

class HostSink final : public ComObject<IDispatch> {
 public:
  HostSink(Source source, EventSink& target) : source_(std::move(source)), target_(&target) {}

  void forget() noexcept { target_ = nullptr; }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
    if (info) *info = nullptr;
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return DISP_E_UNKNOWNNAME;  // who raises events knows their numbers
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT* result,
                                   EXCEPINFO* exception, UINT*) override {
    if (result) V_VT(result) = VT_EMPTY;
    const auto event = source_.events.find(member);
    if (!target_ || event == source_.events.end()) return S_OK;
    if (!parameters || (parameters->cArgs > 0 && !parameters->rgvarg)) return E_INVALIDARG;
    try {
      const ComPtr<HostSink> kept(this);  // the listener may leave while it hears
      target_->raised(event->second, inOrder(*parameters));
      return S_OK;
    } catch (...) {
      return currentException(exception);
    }
  }

 private:
  // Those with a name of their own come first and say their place; the others are backwards.
  static std::vector<Value> inOrder(const DISPPARAMS& parameters) {
    std::vector<Value> values(parameters.cArgs);
    for (UINT i = 0; i < parameters.cArgs; ++i) {
      UINT place = parameters.cArgs - 1 - i;
      if (i < parameters.cNamedArgs) place = static_cast<UINT>(parameters.rgdispidNamedArgs[i]);
      if (place < values.size()) values[place] = fromVariant(parameters.rgvarg[i]);
    }
    return values;
  }
  void* otherInterface(REFIID iid) noexcept override {
    return iid == source_.iid ? static_cast<IDispatch*>(this) : nullptr;
  }

  Source source_;
  EventSink* target_;
};

}  // namespace

std::shared_ptr<void> listenTo(IDispatch* object, EventSink& sink) {
  const ComPtr<IDispatch> dispatch(object);
  const auto container = dispatch.as<IConnectionPointContainer>();
  if (!container) return nullptr;
  ComPtr<ITypeInfo> classInfo, source;
  if (const auto provider = dispatch.as<IProvideClassInfo>();
      provider && SUCCEEDED(provider->GetClassInfo(classInfo.put())) && classInfo) {
    source = defaultSource(*classInfo);
  }
  if (!source) source = sourceInLibrary(*dispatch, *container);
  if (!source) return nullptr;
  const auto heard = makeComObject<HostSink>(readSource(*source), sink);
  ComPtr<IConnectionPoint> point;
  DWORD cookie = 0;
  if (FAILED(container->FindConnectionPoint(Attributes(*source)->guid, point.put())) ||
      FAILED(point->Advise(heard.get(), &cookie))) {
    return nullptr;
  }
  return {heard.get(), [heard, point, cookie](HostSink* left) {
            left->forget();
            point->Unadvise(cookie);
          }};
}

}  // namespace vmgv

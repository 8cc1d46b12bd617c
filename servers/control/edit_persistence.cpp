// What is kept with the host's form: the font, where it is not the container's.
#include "frontends/com/bridge.h"
#include "frontends/com/variant.h"
#include "frontends/com/wall.h"
#include "servers/control/edit_control.h"
#include "servers/control/fonts.h"

namespace vmgv {
namespace {

constexpr const wchar_t* kStream = L"Contents";

bool sameFont(const Value& one, const Value& other) {
  return vmgv::sameFont(exposeObject(one.object()).get(), exposeObject(other.object()).get());
}

// A container's property bag.
class HostBag final : public PropertyBag {
 public:
  HostBag(IPropertyBag& bag, IErrorLog* log) noexcept : bag_(bag), log_(log) {}

  Value read(std::string_view property, const Value& defaultValue) override {
    Variant kept;
    kept.vt = VT_UNKNOWN;  // what is expected; the bag may give its IDispatch as well
    kept.punkVal = nullptr;
    if (FAILED(bag_.Read(wide(property).c_str(), &kept, log_))) return defaultValue;
    if (kept.vt != VT_UNKNOWN && kept.vt != VT_DISPATCH) return defaultValue;
    const auto font = ComPtr<IUnknown>(kept.punkVal).as<IFontDisp>();
    return font ? Value(wrapDispatch(font.get())) : defaultValue;
  }
  void write(std::string_view property, const Value& value, const Value& defaultValue) override {
    if (sameFont(value, defaultValue)) return;
    Variant font(value);
    written_ = bag_.Write(wide(property).c_str(), &font);
  }

  HRESULT written() const noexcept { return written_; }

 private:
  IPropertyBag& bag_;
  IErrorLog* log_;
  HRESULT written_ = S_OK;
};

// The font on its way from or to a stream.
class FontBag final : public PropertyBag {
 public:
  explicit FontBag(ComPtr<IFontDisp> font = {}) noexcept : font_(std::move(font)) {}

  Value read(std::string_view, const Value& defaultValue) override {
    return font_ ? Value(wrapDispatch(font_.get())) : defaultValue;
  }
  void write(std::string_view, const Value& value, const Value& defaultValue) override {
    if (!sameFont(value, defaultValue)) font_ = exposeObject(value.object()).as<IFontDisp>();
  }

  IFontDisp* font() const noexcept { return font_.get(); }

 private:
  ComPtr<IFontDisp> font_;
};

}  // namespace

HRESULT EditControl::InitNew() {
  dirty_ = false;
  return S_OK;
}

HRESULT EditControl::Load(IStream* stream) {
  if (!stream) return E_POINTER;
  return guarded([&] {
    FontBag bag(loadFont(*stream));
    core_->ReadProperties(bag);
    dirty_ = false;
  });
}

HRESULT EditControl::Save(IStream* stream, BOOL clearDirty) {
  if (!stream) return E_POINTER;
  return guarded([&] {
    FontBag bag;
    core_->WriteProperties(bag);
    saveFont(*stream, bag.font());
    if (clearDirty) dirty_ = false;
  });
}

HRESULT EditControl::GetSizeMax(ULARGE_INTEGER* size) {
  if (!size) return E_POINTER;
  size->QuadPart = kSavedFontBytes;
  return S_OK;
}

HRESULT EditControl::InitNew(IStorage* storage) { return storage ? InitNew() : E_POINTER; }

HRESULT EditControl::Load(IStorage* storage) {
  if (!storage) return E_POINTER;
  ComPtr<IStream> stream;
  const HRESULT opened =
      storage->OpenStream(kStream, nullptr, STGM_READ | STGM_SHARE_EXCLUSIVE, 0, stream.put());
  return FAILED(opened) ? opened : Load(stream.get());
}

HRESULT EditControl::Save(IStorage* storage, BOOL) {
  if (!storage) return E_POINTER;
  ComPtr<IStream> stream;
  const HRESULT made =
      storage->CreateStream(kStream, STGM_CREATE | STGM_WRITE | STGM_SHARE_EXCLUSIVE, 0, 0, stream.put());
  return FAILED(made) ? made : Save(stream.get(), FALSE);
}

HRESULT EditControl::SaveCompleted(IStorage*) {
  dirty_ = false;
  return S_OK;
}

HRESULT EditControl::Load(IPropertyBag* bag, IErrorLog* log) {
  if (!bag) return E_POINTER;
  return guarded([&] {
    HostBag host(*bag, log);
    core_->ReadProperties(host);
    dirty_ = false;
  });
}

HRESULT EditControl::Save(IPropertyBag* bag, BOOL clearDirty, BOOL) {
  if (!bag) return E_POINTER;
  return guarded([&] {
    HostBag host(*bag, nullptr);
    core_->WriteProperties(host);
    if (SUCCEEDED(host.written()) && clearDirty) dirty_ = false;
    return host.written();
  });
}

}  // namespace vmgv

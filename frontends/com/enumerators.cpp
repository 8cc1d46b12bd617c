#include "frontends/com/enumerators.h"

#include "frontends/com/com_object.h"
#include "frontends/com/variant.h"
#include "frontends/com/wall.h"

namespace vmgv {
namespace {

class ExposedEnumeration final : public ComObject<IEnumVARIANT> {
 public:
  explicit ExposedEnumeration(const ObjectRef& collection)
      : collection_(collection), items_((*collection).enumerate()) {}

  HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* items, ULONG* fetched) override {
    if (fetched) *fetched = 0;
    if (!items || (!fetched && count != 1)) return E_POINTER;
    ULONG filled = 0;
    const HRESULT result = guarded([&] {
      for (Value item; filled < count && items_->next(item); ++filled) toVariant(item, items + filled);
    });
    taken_ += filled;
    if (fetched) *fetched = filled;
    if (FAILED(result) && filled == 0) return result;
    return filled == count ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
    return guarded([&] { return skip(count) ? S_OK : S_FALSE; });
  }
  HRESULT STDMETHODCALLTYPE Reset() override {
    return guarded([&] {
      items_ = (*collection_).enumerate();
      taken_ = 0;
    });
  }
  HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** clone) override {
    if (!clone) return E_POINTER;
    *clone = nullptr;
    return guarded([&] {
      auto other = makeComObject<ExposedEnumeration>(collection_);
      other->skip(taken_);
      *clone = other.detach();
    });
  }

 private:
  bool skip(ULONG count) {
    Value item;
    for (; count > 0; --count, ++taken_) {
      if (!items_->next(item)) return false;
    }
    return true;
  }

  ObjectRef collection_;
  std::unique_ptr<Enumeration> items_;
  ULONG taken_ = 0;
};

class WrappedEnumerator final : public Enumeration {
 public:
  explicit WrappedEnumerator(ComPtr<IEnumVARIANT> enumerator) : enumerator_(std::move(enumerator)) {}

  bool next(Value& item) override {
    Variant variant;
    ULONG fetched = 0;
    const HRESULT result = enumerator_->Next(1, &variant, &fetched);
    check(result);
    if (result != S_OK || fetched == 0) return false;
    item = variant.value();
    return true;
  }

 private:
  ComPtr<IEnumVARIANT> enumerator_;
};

}  // namespace

ComPtr<IEnumVARIANT> exposeEnumeration(const ObjectRef& collection) {
  return makeComObject<ExposedEnumeration>(collection);
}

std::unique_ptr<Enumeration> wrapEnumerator(ComPtr<IEnumVARIANT> enumerator) {
  return std::make_unique<WrappedEnumerator>(std::move(enumerator));
}

}  // namespace vmgv

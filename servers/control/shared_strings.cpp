#include "servers/control/shared_strings.h"

#include "frontends/com/text.h"
#include "frontends/com/wall.h"

namespace vmgv {
namespace {

constexpr const char* kWhat = "string service";

}  // namespace

_MlStringService* SharedStrings::shared() const {
  if (!asked_) {
    asked_ = true;
    CoCreateInstance(__uuidof(::MlStringService), nullptr, CLSCTX_INPROC_SERVER, __uuidof(_MlStringService),
                     shared_.putVoid());
  }
  return shared_.get();
}

void SharedStrings::Load() {
  if (auto* const service = shared()) {
    check(service->Load(), kWhat);
  } else {
    processStringService().Load();
  }
}

bool SharedStrings::Loaded() const {
  auto* const service = shared();
  if (!service) return processStringService().Loaded();
  VARIANT_BOOL loaded = VARIANT_FALSE;
  check(service->get_Loaded(&loaded), kWhat);
  return loaded != VARIANT_FALSE;
}

LanguageId SharedStrings::Language() const {
  auto* const service = shared();
  if (!service) return processStringService().Language();
  LanguageId language = kNoLanguage;
  check(service->get_Language(&language), kWhat);
  return language;
}

void SharedStrings::setLanguage(LanguageId language) {
  if (auto* const service = shared()) {
    check(service->put_Language(language), kWhat);
  } else {
    processStringService().setLanguage(language);
  }
}

std::string SharedStrings::GetString(std::string_view application, std::string_view key) const {
  auto* const service = shared();
  if (!service) return processStringService().GetString(application, key);
  BString text;
  check(service->GetString(BString(application).get(), BString(key).get(), text.put()), kWhat);
  return narrow(text.view());
}

std::int32_t SharedStrings::LanguageCharset() const {
  auto* const service = shared();
  if (!service) return processStringService().LanguageCharset();
  long charset = 0;
  check(service->get_LanguageCharset(&charset), kWhat);
  return charset;
}

}  // namespace vmgv

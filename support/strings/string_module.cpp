#include "support/strings/string_module.h"

#include <cstdlib>

namespace vmgv {

std::string MlStringModule::GetResString(std::int32_t id, [[maybe_unused]] std::string_view defaultText) {
  chooseLanguage();
  return service_.GetString("vmGridViews", "x" + std::to_string(std::abs(std::int64_t{id})));
}

void MlStringModule::chooseLanguage() {
  if (const LanguageId chosen = service_.Language(); chosen != kNoLanguage) {
    language_ = chosen;
  } else {
    if (language_ == kNoLanguage) language_ = kGreek;
    service_.setLanguage(static_cast<LanguageId>(language_));
  }
  if (!service_.Loaded()) service_.Load();
  initialised_ = true;
}

}  // namespace vmgv

// The library's texts in the language of the process.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "support/strings/string_service.h"
#include "support/strings/text.h"

namespace vmgv {

class MlStringModule {
 public:
  explicit MlStringModule(MlStringService& service = processStringService()) noexcept : service_(service) {}

  // The text in the language that the process has chosen; where none has chosen yet, Greek is chosen for all.
  // `defaultText` is never used: an unknown id gives "". What the service throws passes through.
  std::string GetResString(std::int32_t id, std::string_view defaultText = {});
  std::string GetResString(Text text, std::string_view defaultText = {}) {
    return GetResString(static_cast<std::int32_t>(text), defaultText);
  }

  MlStringService& service() noexcept { return service_; }
  std::int32_t language() const noexcept { return language_; }  // 0 before the first text
  bool initialised() const noexcept { return initialised_; }

 private:
  void chooseLanguage();

  MlStringService& service_;
  std::int32_t language_ = kNoLanguage;
  bool initialised_ = false;
};

}  // namespace vmgv

// The string service that this process shares with its host and its sibling components.
#pragma once

#include "string_service_library.h"
//
#include "frontends/com/com_ptr.h"
#include "support/strings/string_service.h"

namespace vmgv {

// The registered string service, asked for when first needed; the built-in table where there is none.
class SharedStrings final : public MlStringService {
 public:
  void Load() override;
  bool Loaded() const override;
  LanguageId Language() const override;
  void setLanguage(LanguageId language) override;
  std::string GetString(std::string_view application, std::string_view key) const override;
  std::int32_t LanguageCharset() const override;

 private:
  _MlStringService* shared() const;  // null where there is none

  mutable bool asked_ = false;
  mutable ComPtr<_MlStringService> shared_;
};

}  // namespace vmgv

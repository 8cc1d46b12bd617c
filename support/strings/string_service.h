// The string service: texts by application and key, in one language for the whole process.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vmgv {

using LanguageId = std::int16_t;

inline constexpr LanguageId kNoLanguage = 0;  // not yet chosen
inline constexpr LanguageId kGreek = 1032;
inline constexpr LanguageId kEnglish = 1033;

class MlStringService {
 public:
  virtual ~MlStringService() = default;

  // Makes the texts for the current language available.
  virtual void Load() = 0;
  virtual bool Loaded() const = 0;

  virtual LanguageId Language() const = 0;
  virtual void setLanguage(LanguageId language) = 0;

  // The text, or "" for an application or key that the service does not know.
  virtual std::string GetString(std::string_view application, std::string_view key) const = 0;

  // The platform character set for the current language, for fonts.
  virtual std::int32_t LanguageCharset() const = 0;
};

// Serves the table of resources/strings.def: application "vmGridViews", keys "x4" to "x134".
// Before Load every text is "". Setting another language unloads; a language without a table is served in
// English, so that a host in a third language gets texts that most can read.
class EmbeddedStringService : public MlStringService {
 public:
  void Load() override { loaded_ = true; }
  bool Loaded() const override { return loaded_; }
  LanguageId Language() const override { return language_; }
  void setLanguage(LanguageId language) override;
  std::string GetString(std::string_view application, std::string_view key) const override;
  std::int32_t LanguageCharset() const override;

 private:
  LanguageId language_ = kNoLanguage;
  bool loaded_ = false;
};

// The service that every part of the process shares, created on first use.
MlStringService& processStringService();

}  // namespace vmgv

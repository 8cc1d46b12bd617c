// The string table as a user sees it, the choice of the language, and message formatting.
#include <gtest/gtest.h>

#include <vector>

#include "support/automation/error.h"
#include "support/strings/format_message.h"
#include "support/strings/string_module.h"

namespace vmgv {
namespace {

// Answers with what it was asked, and remembers what was done to it.
class FakeService : public MlStringService {
 public:
  explicit FakeService(LanguageId language = kNoLanguage, bool loaded = false)
      : language_(language), loaded_(loaded) {}

  void Load() override {
    loaded_ = true;
    ++loads;
  }
  bool Loaded() const override { return loaded_; }
  LanguageId Language() const override { return language_; }
  void setLanguage(LanguageId language) override {
    language_ = language;
    loaded_ = false;
  }
  std::string GetString(std::string_view application, std::string_view key) const override {
    if (fails) throw Error(ErrorNumber::FileNotFound);
    return std::string(application) + "/" + std::string(key);
  }
  std::int32_t LanguageCharset() const override { return 0; }

  int loads = 0;
  bool fails = false;

 private:
  LanguageId language_;
  bool loaded_;
};

TEST(StringModule, AdoptsTheLanguageOfTheProcessOrChoosesGreek) {
  struct {
    LanguageId before;
    LanguageId after;
  } const cases[]{{kNoLanguage, kGreek}, {kEnglish, kEnglish}, {kGreek, kGreek}, {1036, 1036}};
  for (const auto& c : cases) {
    FakeService service(c.before);
    MlStringModule module(service);
    EXPECT_FALSE(module.initialised());
    module.GetResString(Text::Help);
    EXPECT_EQ(service.Language(), c.after);
    EXPECT_EQ(module.language(), c.after);
    EXPECT_TRUE(module.initialised());
  }
}

TEST(StringModule, FollowsTheServiceOnEveryLookUp) {
  FakeService service;
  MlStringModule module(service);
  module.GetResString(Text::Help);
  module.GetResString(Text::Help);
  EXPECT_EQ(service.loads, 1) << "texts already loaded are not loaded again";

  service.setLanguage(kEnglish);
  module.GetResString(Text::Help);
  EXPECT_EQ(module.language(), kEnglish);
  EXPECT_EQ(service.loads, 2);

  service.setLanguage(kNoLanguage);
  module.GetResString(Text::Help);
  EXPECT_EQ(service.Language(), kEnglish) << "the module writes back what it adopted";
}

TEST(StringModule, AsksByKeyAndIgnoresTheDefaultText) {
  FakeService service;
  MlStringModule module(service);
  EXPECT_EQ(module.GetResString(Text::Help, "Βοήθεια"), "vmGridViews/x18");
  EXPECT_EQ(module.GetResString(18), "vmGridViews/x18");
  EXPECT_EQ(module.GetResString(-18), "vmGridViews/x18");

  EmbeddedStringService embedded;
  EXPECT_EQ(MlStringModule(embedded).GetResString(6, "default"), "");

  service.fails = true;
  EXPECT_THROW(module.GetResString(Text::Help), Error);
}

TEST(EmbeddedStringService, ServesEachLanguageOnceLoaded) {
  EmbeddedStringService service;
  EXPECT_EQ(service.Language(), kNoLanguage);
  EXPECT_EQ(service.GetString("vmGridViews", "x5"), "");
  EXPECT_EQ(service.LanguageCharset(), 161) << "the first text will be Greek";

  struct {
    LanguageId language;
    const char* cancel;
    std::int32_t charset;
  } const cases[]{{kGreek, "Άκυρο", 161}, {kEnglish, "Cancel", 0}, {1036, "Cancel", 0}};
  for (const auto& c : cases) {
    service.setLanguage(c.language);
    EXPECT_FALSE(service.Loaded());
    service.Load();
    EXPECT_EQ(service.GetString("vmGridViews", "x5"), c.cancel);
    EXPECT_EQ(service.LanguageCharset(), c.charset);
    service.setLanguage(c.language);
    EXPECT_TRUE(service.Loaded()) << "the same language again changes nothing";
  }
}

TEST(EmbeddedStringService, KnowsOnlyItsOwnKeys) {
  EmbeddedStringService service;
  service.setLanguage(kEnglish);
  service.Load();
  for (const char* key : {"", "x", "5", "X5", "x05", "x-5", "x+5", "x5 ", "x5a", "x3", "x6", "x102", "x135",
                          "x4294967301", "x99999999999999999999"}) {
    EXPECT_EQ(service.GetString("vmGridViews", key), "") << key;
  }
  EXPECT_EQ(service.GetString("other", "x5"), "");
}

// The conditions editor reads the operator from the entry's first character.
TEST(StringTable, OperatorsBeginWithTheirCodeInBothLanguages) {
  EmbeddedStringService service;
  MlStringModule module(service);
  for (const LanguageId language : {kGreek, kEnglish}) {
    service.setLanguage(language);
    for (int code = 0; code <= 9; ++code) {
      EXPECT_TRUE(module.GetResString(51 + code).starts_with(std::to_string(code) + " - ")) << language;
    }
  }
}

TEST(FormatMessage, ReplacesInIncreasingOrderOfTheNumber) {
  struct {
    const char* text;
    std::vector<Value> args;
    const char* expected;
  } const cases[]{
      {"Page %1 of %2", {3, 7}, "Page 3 of 7"},
      {"Page %1 of %2", {}, "Page %1 of %2"},
      {"Page %1 of %2", {3}, "Page 3 of %2"},
      {"%1 and %1", {"a"}, "a and a"},
      {"%2%1", {"a", "b"}, "ba"},
      {"%1 %2", {"%2", "b"}, "b b"},
      {"%1 %2", {"a", "%1"}, "a %1"},
      {"%1", {"%1"}, "%1"},
      {"%10", {1, 2, 3, 4, 5, 6, 7, 8, 9, "ten"}, "10"},
      {"% 1 %01 100%", {"a"}, "% 1 %01 100%"},
      {"%1", {Value()}, ""},
      {"Γραμμή %1: %2", {12.5, true}, "Γραμμή 12.5: True"},
  };
  for (const auto& c : cases) EXPECT_EQ(FormatMessage(c.text, c.args), c.expected) << c.text;
  EXPECT_EQ(FormatMessage("%1%2", {1, "\r\n"}), "1\r\n");
  EXPECT_THROW(FormatMessage("%1", {Null{}}), Error);
}

}  // namespace
}  // namespace vmgv

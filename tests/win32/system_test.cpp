// The registry, the fonts, help and automation objects of the machine.
#include <cstdlib>

#include "frontends/com/text.h"
#include "frontends/win32/win32_system.h"
#include "support/automation/error.h"
#include "tests/win32/fixture.h"

namespace vmgv {
namespace {

constexpr const char* kKey = "SOFTWARE\\Velmora\\Test";

class RegistryKey {
 public:
  explicit RegistryKey(REGSAM view, const char* path = kKey) : view_(view), path_(wide(path)) {
    RegCreateKeyExW(HKEY_LOCAL_MACHINE, path_.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS | view, nullptr, &key_,
                    nullptr);
  }
  RegistryKey(const RegistryKey&) = delete;
  RegistryKey& operator=(const RegistryKey&) = delete;
  ~RegistryKey() {
    RegCloseKey(key_);
    RegDeleteKeyExW(HKEY_LOCAL_MACHINE, path_.c_str(), view_, 0);
  }
  void set(const wchar_t* name, DWORD type, const void* data, std::size_t bytes) {
    RegSetValueExW(key_, name, 0, type, static_cast<const BYTE*>(data), static_cast<DWORD>(bytes));
  }
  void set(const wchar_t* name, const std::wstring& text) {
    set(name, REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
  }

 private:
  REGSAM view_;
  std::wstring path_;
  HKEY key_ = nullptr;
};

}  // namespace

struct SystemTest : Win32Test {
  Win32System system{desktop};
};

TEST_F(SystemTest, SettingsComeFromEitherViewOfTheRegistry) {
  constexpr bool kIs64Bit = sizeof(void*) == 8;
  RegistryKey own(kIs64Bit ? KEY_WOW64_64KEY : KEY_WOW64_32KEY),
      other(kIs64Bit ? KEY_WOW64_32KEY : KEY_WOW64_64KEY);
  const std::wstring longText(5000, L'ω');
  own.set(L"both", L"own");
  other.set(L"both", L"other");
  other.set(L"elsewhere", L"φάκελος\\");
  own.set(L"empty", L"");
  own.set(L"long", longText);
  own.set(L"unended", REG_SZ, L"abc", 3 * sizeof(wchar_t));
  const DWORD number = 7;
  own.set(L"number", REG_DWORD, &number, sizeof number);
  const std::pair<const char*, std::string> cases[] = {
      {"both", "own"},    {"elsewhere", "φάκελος\\"}, {"empty", ""},        {"long", narrow(longText)},
      {"unended", "abc"}, {"number", "default"},      {"absent", "default"}};
  for (const auto& [name, expected] : cases)
    EXPECT_EQ(system.setting(kKey, name, "default"), expected) << name;
  EXPECT_EQ(system.setting("SOFTWARE\\Velmora\\Nowhere", "x", "default"), "default");
}

TEST_F(SystemTest, FontsAndFoldersAreTheDesktops) {
  const auto fonts = system.desktopFonts();
  ASSERT_TRUE(fonts);
  for (const LogicalFont& font : *fonts) {
    EXPECT_FALSE(font.faceName.empty());
    EXPECT_NE(font.height, 0);
  }
  const std::string folder = system.commonFilesFolder();
  EXPECT_TRUE(folder.ends_with("\\Common Files\\")) << folder;
}

TEST_F(SystemTest, AProgramThatIsNotThereIsNamed) {
  const auto failure = [this](const char* program) -> std::string {
    try {
      system.createObject(program);
    } catch (const Error& error) {
      return std::to_string(error.number()) + " " + error.what();
    }
    return {};
  };
  EXPECT_EQ(failure("No.Such.Program").substr(0, 4), "429 ");
  EXPECT_NE(failure("No.Such.Program").find("No.Such.Program"), std::string::npos);
  RegistryKey key(0, "SOFTWARE\\Velmora\\vmGridViews");
  key.set(L"excelProgId", L"Other.Spreadsheet");
  EXPECT_NE(failure("Excel.Application").find("Other.Spreadsheet"), std::string::npos);
  EXPECT_EQ(failure("No.Such.Program").find("Other"), std::string::npos)
      << "only the spreadsheet is replaced";
  key.set(L"excelProgId", L"Scripting.Dictionary");
  EXPECT_TRUE(system.createObject("Excel.Application"));
}

TEST_F(SystemTest, AMissingHelpFileIsTold) {
  std::string told;
  Steps user(desktop, {[&] {
               told = desktop.box()->text;
               desktop.answer(MessageResult::Ok);
             }});
  EXPECT_EQ(system.openHelp(nullptr, "C:\\nowhere\\VMgridViews.chm>main", HelpCommand::Contents, ""), 0);
  user.finish();
  EXPECT_NE(told.find("C:\\nowhere\\VMgridViews.chm"), std::string::npos) << told;
  EXPECT_EQ(told.find('>'), std::string::npos);
}

TEST_F(SystemTest, HelpOpensATopicAndTheContents) {
  const char* file = std::getenv("HELP_FILE");
  if (!file || !system.fileExists(file)) GTEST_SKIP() << "built without its help file";
  wchar_t path[MAX_PATH] = L"";
  GetFullPathNameW(wide(file).c_str(), MAX_PATH, path, nullptr);
  SampleForm form;
  std::intptr_t topic = 0, contents = 0;
  play(form, {[&] {
                topic = system.openHelp(&form, narrow(path), HelpCommand::Topic, "gridViewsSorting.htm");
                contents = system.openHelp(&form, narrow(path), HelpCommand::Contents, "");
              },
              [&] { EXPECT_EQ(desktop.form(), &form) << "help does not hold the dialog up"; }});
  EXPECT_NE(topic, 0);
  EXPECT_NE(contents, 0);
  EXPECT_TRUE(desktop.boxes().empty());
}

}  // namespace vmgv

// The registry, help and automation objects of the machine.
#include <cstdlib>
#include <filesystem>

#include "frontends/com/text.h"
#include "frontends/win32/win32_system.h"
#include "support/automation/error.h"
#include "tests/win32/fixture.h"

namespace vmgv {
namespace {

constexpr const char* kKey = "SOFTWARE\\Velmora\\Test";
constexpr const char* kProgramKey = "SOFTWARE\\Velmora\\vmGridViews";
constexpr REGSAM kOwn = sizeof(void*) == 8 ? KEY_WOW64_64KEY : KEY_WOW64_32KEY;
constexpr REGSAM kOther = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;

}  // namespace

struct SystemTest : Win32Test {
  ~SystemTest() override {
    for (const REGSAM view : {kOwn, kOther}) {
      for (const char* path : {kKey, kProgramKey}) {
        RegDeleteKeyExW(HKEY_LOCAL_MACHINE, wide(path).c_str(), view, 0);
      }
    }
  }
  void set(REGSAM view, const char* path, const wchar_t* name, const std::wstring& data,
           DWORD type = REG_SZ) {
    HKEY key = nullptr;
    RegCreateKeyExW(HKEY_LOCAL_MACHINE, wide(path).c_str(), 0, nullptr, 0, KEY_WRITE | view, nullptr, &key,
                    nullptr);
    RegSetValueExW(key, name, 0, type, reinterpret_cast<const BYTE*>(data.data()),
                   static_cast<DWORD>(data.size() * sizeof(wchar_t)));
    RegCloseKey(key);
  }

  Win32System system{desktop};
};

TEST_F(SystemTest, SettingsComeFromEitherViewOfTheRegistry) {
  set(kOwn, kKey, L"both", L"own");
  set(kOther, kKey, L"both", L"other");
  set(kOther, kKey, L"elsewhere", std::wstring(L"φάκελος\\") + L'\0');
  set(kOwn, kKey, L"long", std::wstring(5000, L'x'));
  set(kOwn, kKey, L"number", L"12", REG_DWORD);
  const std::pair<const char*, std::string> cases[] = {{"both", "own"},
                                                       {"elsewhere", "φάκελος\\"},
                                                       {"long", std::string(5000, 'x')},
                                                       {"number", "default"},
                                                       {"absent", "default"}};
  for (const auto& [name, expected] : cases) EXPECT_EQ(system.setting(kKey, name, "default"), expected);
}

TEST_F(SystemTest, AProgramThatIsNotThereIsNamed) {
  const auto missing = [this](const char* program) -> std::string {
    try {
      return system.createObject(program) ? "" : "nothing";
    } catch (const Error& error) {
      return error.what();
    }
  };
  set(kOwn, kProgramKey, L"excelProgId", L"Other.Spreadsheet");
  EXPECT_TRUE(missing("Excel.Application").starts_with("Other.Spreadsheet"));
  EXPECT_TRUE(missing("No.Such.Program").starts_with("No.Such.Program"));  // it has no replacement
  set(kOwn, kProgramKey, L"excelProgId", L"Scripting.Dictionary");
  EXPECT_EQ(missing("Excel.Application"), "");
}

TEST_F(SystemTest, HelpOpensBesideADialogOrIsToldToBeMissing) {
  const char* const file = std::getenv("HELP_FILE");
  if (!file || !system.fileExists(file)) GTEST_SKIP() << "built without its help file";
  const std::string path = narrow(std::filesystem::absolute(file).wstring());
  SampleForm form;
  std::string told;
  play(form, {[&] {
                EXPECT_NE(system.openHelp(&form, path, HelpCommand::Topic, "gridViewsSorting.htm"), 0);
                EXPECT_NE(system.openHelp(&form, path, HelpCommand::Contents, ""), 0);
              },
              [&] {
                EXPECT_EQ(desktop.form(), &form) << "help does not hold the dialog up";
                EXPECT_EQ(system.openHelp(&form, path + "x>main", HelpCommand::Contents, ""), 0);
              },
              [&] {
                told = desktop.box()->text;
                desktop.answer(MessageResult::Ok);
              }});
  EXPECT_TRUE(told.find(path + "x") != told.npos && told.find('>') == told.npos) << told;
}

}  // namespace vmgv

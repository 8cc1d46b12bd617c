// The platform's own boxes, answered on their own windows.
#include <filesystem>
#include <fstream>

#include "frontends/com/text.h"
#include "tests/win32/fixture.h"

namespace vmgv {

TEST_F(Win32Test, MessagesShowTheirStyle) {
  const struct {
    MessageStyle style;
    const wchar_t* icon;
    int buttons;
    MessageResult answer;
  } cases[] = {{MessageStyle::Critical, IDI_ERROR, 1, MessageResult::Ok},
               {MessageStyle::Information, IDI_INFORMATION, 1, MessageResult::Ok},
               {MessageStyle::Question, IDI_QUESTION, 2, MessageResult::Yes},
               {MessageStyle::Question, IDI_QUESTION, 2, MessageResult::No}};
  const HostWindow host(L"host");
  for (const auto& each : cases) {
    int buttons = 0;
    std::wstring title, text;
    Steps user(desktop, {[&] {
                 const HWND box = GetActiveWindow();
                 title = textOf(box);
                 EXPECT_FALSE(IsWindowEnabled(host.get()));
                 for (HWND child = GetWindow(box, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
                   wchar_t kind[20] = L"";
                   GetClassNameW(child, kind, 20);
                   if (_wcsicmp(kind, L"Button") == 0 && IsWindowVisible(child)) ++buttons;
                   if (_wcsicmp(kind, L"Static") == 0 && !textOf(child).empty()) text = textOf(child);
                   if (const auto icon = SendMessageW(child, STM_GETICON, 0, 0)) {
                     EXPECT_EQ(reinterpret_cast<HICON>(icon), LoadIconW(nullptr, each.icon));
                   }
                 }
                 EXPECT_THROW(desktop.answer(MessageResult::Cancel), CannotDo);
                 EXPECT_THROW(desktop.pick({}), CannotDo);
                 desktop.answer(each.answer);
               }});
    EXPECT_EQ(desktop.messageBox("<b>1 < 2</b> & Ωμέγα", each.style, ""), each.answer);
    user.finish();
    EXPECT_EQ(title, L"vmGridViews");
    EXPECT_EQ(text, L"<b>1 < 2</b> & Ωμέγα");
    EXPECT_EQ(buttons, each.buttons);
    EXPECT_TRUE(IsWindowEnabled(host.get()));
  }
}

TEST_F(Win32Test, APickerAnswersWithTheWholePath) {
  const std::filesystem::path file = std::filesystem::temp_directory_path() / L"πρότυπο.xls";
  std::ofstream(file).put(' ');
  const std::filesystem::path before = std::filesystem::current_path();
  const FileRequest request{"Πρότυπο", {{"Excel Files (*.xls)", "*.xls"}}, "xls"};
  std::optional<std::string> picked;
  Steps user(desktop, {[&] {
               EXPECT_EQ(textOf(GetActiveWindow()), L"Πρότυπο");
               EXPECT_THROW(desktop.pick("no such file.xls"), CannotDo);
               desktop.pick(narrow(file.wstring()));
             }});
  picked = desktop.pickFile(request);
  user.finish();
  ASSERT_TRUE(picked);
  EXPECT_TRUE(std::filesystem::equivalent(wide(*picked), file));
  EXPECT_EQ(std::filesystem::current_path(), before);
  std::filesystem::remove(file);
}

}  // namespace vmgv

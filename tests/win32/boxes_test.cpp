// The platform's message boxes, answered on their own windows.
#include "frontends/win32/window_walk.h"
#include "tests/win32/fixture.h"

namespace vmgv {

TEST_F(Win32Test, MessagesShowTheirStyle) {
  const struct {
    MessageStyle style;
    const wchar_t* icon;
    MessageResult answer;
  } cases[] = {{MessageStyle::Critical, IDI_ERROR, MessageResult::Ok},
               {MessageStyle::Information, IDI_INFORMATION, MessageResult::Ok},
               {MessageStyle::Question, IDI_QUESTION, MessageResult::Yes},
               {MessageStyle::Question, IDI_QUESTION, MessageResult::No}};
  const auto host = hostWindow(L"host");
  for (const auto& each : cases) {
    bool hasText = false, hasIcon = false;
    Steps user(desktop, {[&] {
                 EXPECT_EQ(textOf(GetActiveWindow()), L"vmGridViews");
                 EXPECT_FALSE(IsWindowEnabled(host.get()));
                 const auto icon = reinterpret_cast<LRESULT>(LoadIconW(nullptr, each.icon));
                 eachChild(GetActiveWindow(), [&](HWND child) {
                   hasText = hasText || textOf(child) == L"<b>1 < 2</b> & Ωμέγα";
                   hasIcon = hasIcon || SendMessageW(child, STM_GETICON, 0, 0) == icon;
                   return true;
                 });
                 EXPECT_THROW(desktop.answer(MessageResult::Cancel), CannotDo);
                 EXPECT_THROW(desktop.pick({}), CannotDo);
                 desktop.answer(each.answer);
               }});
    EXPECT_EQ(desktop.messageBox("<b>1 < 2</b> & Ωμέγα", each.style, ""), each.answer);
    user.finish();
    EXPECT_TRUE(hasText && hasIcon && IsWindowEnabled(host.get()));
  }
}

}  // namespace vmgv

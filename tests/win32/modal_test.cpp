// Modal life between a host's windows: who takes input, who is active, whose hooks see what.
#include "support/automation/error.h"
#include "tests/win32/fixture.h"

namespace vmgv {
namespace {

int keysSeen;

LRESULT CALLBACK seeF1(int code, WPARAM wParam, LPARAM lParam) {
  const auto* message = reinterpret_cast<const MSG*>(lParam);
  keysSeen += code == MSGF_DIALOGBOX && message->message == WM_KEYDOWN && message->wParam == VK_F1;
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

TEST_F(Win32Test, HostsWindowsRestWhileADialogIsOpen) {
  const auto other = hostWindow(L"other"), owner = hostWindow(L"owner");
  const auto resting = hostWindow(L"resting"), hidden = hostWindow(L"hidden");
  EnableWindow(resting.get(), FALSE);  // by the host, for reasons of its own
  ShowWindow(hidden.get(), SW_HIDE);
  SetActiveWindow(owner.get());
  SampleForm below, above;
  above.layOut(desktop);
  below.cmdBrowse.onClick = [&] { desktop.showModal(above); };
  play(below, {[&] {
                 EXPECT_FALSE(IsWindowEnabled(owner.get()) || IsWindowEnabled(other.get()));
                 EXPECT_TRUE(IsWindowEnabled(hidden.get()));
                 EXPECT_EQ(GetWindow(dialog(), GW_OWNER), owner.get());
                 desktop.click(below.cmdBrowse);
                 EXPECT_EQ(GetActiveWindow(), dialog());
                 EXPECT_FALSE(IsWindowEnabled(owner.get())) << "the lower dialog is still open";
               },
               [&] {
                 EXPECT_FALSE(IsWindowEnabled(desktop.windowOf(&below)));
                 EXPECT_THROW(desktop.click(below.cmdOK), CannotDo);
                 EXPECT_THROW(desktop.showModal(below), Error);
                 desktop.click(above.cmdOK);
               }});
  EXPECT_EQ(GetActiveWindow(), owner.get());
  EXPECT_TRUE(IsWindowEnabled(owner.get()) && IsWindowEnabled(other.get()));
  EXPECT_FALSE(IsWindowEnabled(resting.get()));
}

TEST_F(Win32Test, TheHostsHooksSeeEveryMessage) {
  keysSeen = 0;
  const HHOOK hook = SetWindowsHookExW(WH_MSGFILTER, seeF1, nullptr, GetCurrentThreadId());
  SampleForm form;
  play(form, {[&] { PostMessageW(GetFocus(), WM_KEYDOWN, VK_F1, 0); }, [] {}});
  UnhookWindowsHookEx(hook);
  EXPECT_EQ(keysSeen, 1);
}

TEST_F(Win32Test, DialogsEndWithTheirProgramOrOwner) {
  SampleForm form;
  play(form, {[] { PostQuitMessage(7); }});
  EXPECT_FALSE(form.isOpen());
  MSG message{};
  EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) << "for the host's own loop";

  auto owner = hostWindow(L"owner");
  SetActiveWindow(owner.get());
  SampleForm second;
  play(second, {[&] { owner.reset(); }});
  EXPECT_FALSE(second.isOpen());
}

TEST_F(Win32Test, NothingThrownPassesThroughAWindowProcedure) {
  SampleForm form;
  form.check.onClick = [] { throw Error(13, "Ασυμφωνία τύπων"); };
  form.combo.onClick = [] { throw 7; };
  play(form, {[&] { desktop.click(form.check); },
              [&] {
                EXPECT_EQ(desktop.box()->text, "Ασυμφωνία τύπων");
                desktop.answer(MessageResult::Ok);
              },
              [&] { desktop.choose(form.combo, 1); }, [&] { desktop.answer(MessageResult::Ok); }});
  EXPECT_EQ(desktop.boxes().size(), 2u);
}

}  // namespace vmgv

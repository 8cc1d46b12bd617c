// Modal life between a host's windows: who takes input, who is active, whose hooks see what.
#include "support/automation/error.h"
#include "tests/win32/fixture.h"

namespace vmgv {
namespace {

int keysSeen;

LRESULT CALLBACK seeF1(int code, WPARAM wParam, LPARAM lParam) {
  const auto* message = reinterpret_cast<const MSG*>(lParam);
  if (code != MSGF_DIALOGBOX || message->message != WM_KEYDOWN || message->wParam != VK_F1) {
    return CallNextHookEx(nullptr, code, wParam, lParam);
  }
  ++keysSeen;
  return TRUE;
}

Win32Desktop* yielding;

void CALLBACK yieldToo(HWND, UINT, UINT_PTR, DWORD) { yielding->doEvents(); }

}  // namespace

TEST_F(Win32Test, HostsWindowsRestWhileADialogIsOpen) {
  const HostWindow other(L"other"), owner(L"owner"), resting(L"resting"), hidden(L"hidden");
  EnableWindow(resting.get(), FALSE);  // by the host, for reasons of its own
  ShowWindow(hidden.get(), SW_HIDE);
  SetActiveWindow(owner.get());
  SampleForm below, above;
  above.layOut(desktop);
  below.cmdBrowse.onClick = [&] { desktop.showModal(above); };
  play(below, {[&] {
                 EXPECT_FALSE(IsWindowEnabled(owner.get()));
                 EXPECT_FALSE(IsWindowEnabled(other.get()));
                 EXPECT_TRUE(IsWindowEnabled(hidden.get()));
                 EXPECT_EQ(GetWindow(dialog(), GW_OWNER), owner.get());
                 desktop.click(below.cmdBrowse);
                 EXPECT_EQ(GetActiveWindow(), dialog());
                 EXPECT_TRUE(IsWindowEnabled(dialog()));
                 EXPECT_FALSE(IsWindowEnabled(owner.get())) << "the lower dialog is still open";
                 EXPECT_EQ(desktop.focused(), &below.cmdBrowse);
               },
               [&] {
                 EXPECT_FALSE(IsWindowEnabled(desktop.windowOf(&below)));
                 EXPECT_THROW(desktop.click(below.cmdOK), CannotDo);
                 EXPECT_THROW(desktop.showModal(below), Error);
                 desktop.click(above.cmdOK);
               }});
  EXPECT_EQ(GetActiveWindow(), owner.get());
  EXPECT_TRUE(IsWindowEnabled(owner.get()));
  EXPECT_TRUE(IsWindowEnabled(other.get()));
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
  ASSERT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) << "for the host's own loop";
  EXPECT_EQ(message.wParam, 7u);

  auto owner = std::make_unique<HostWindow>(L"owner");
  SetActiveWindow(owner->get());
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

TEST_F(Win32Test, LongWorkLetsTheUserIn) {
  SampleForm form;
  int rows = 0;
  bool cancelled = false;
  // A host's own timer may fire inside a yield, and yield itself.
  yielding = &desktop;
  const UINT_PTR timer = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, yieldToo);
  form.cmdCancel.onClick = [&] { cancelled = true; };
  form.cmdOK.onClick = [&] {
    for (const DWORD start = GetTickCount(); !cancelled && GetTickCount() - start < 5000; ++rows) {
      if (rows == 1000) PostMessageW(windowOf(form.cmdCancel), BM_CLICK, 0, 0);
      desktop.doEvents();
    }
    form.close();
  };
  play(form, {[&] { desktop.click(form.cmdOK); }});
  KillTimer(nullptr, timer);
  EXPECT_TRUE(cancelled);
  EXPECT_GT(rows, 1000) << "most yields cost nothing";
}

TEST_F(Win32Test, WhenNobodyActsAnyMoreEverythingEnds) {
  SampleForm form;
  play(form, {});
  EXPECT_EQ(form.events, "") << "closed as by the title bar, not by a button";
  Steps nobody(desktop, {});
  EXPECT_EQ(desktop.messageBox("sure?", MessageStyle::Question, ""), MessageResult::No);
  EXPECT_EQ(desktop.pickFile({}), std::nullopt);
  form.onCloseByUser = [] {};
  form.open();
  EXPECT_THROW(desktop.showModal(form), Error);
  EXPECT_FALSE(form.isOpen());
}

}  // namespace vmgv

// Modal life: forms over forms, boxes over forms, and the message loop in between.
#include "frontends/win32/win32_desktop.h"

#include <windows.h>

#include <commdlg.h>

#include <algorithm>

#include "frontends/com/text.h"
#include "frontends/win32/box_watch.h"
#include "frontends/win32/keys.h"
#include "frontends/win32/natural_size.h"
#include "frontends/win32/scopes.h"
#include "frontends/win32/surface.h"
#include "support/automation/error.h"
#include "support/frame/services.h"

namespace vmgv {
namespace {

constexpr int kAlreadyShown = 400;
constexpr std::chrono::milliseconds kPumpInterval{50};
constexpr std::size_t kLongestPath = 32767;

// "name", "patterns" and so on, each ended by a zero, the whole by one more.
std::wstring filterText(const std::vector<FileFilter>& filters) {
  std::wstring text;
  for (const FileFilter& filter : filters) {
    text.append(wide(filter.name)).append(1, L'\0').append(wide(filter.patterns)).append(1, L'\0');
  }
  return text.append(1, L'\0');
}

}  // namespace

class Win32Desktop::OnTop {
 public:
  OnTop(Win32Desktop& desktop, Shown shown)
      : desktop_(desktop), pumping_(std::exchange(desktop.pumping_, false)) {
    desktop.shown_.push_back(shown);
  }
  OnTop(const OnTop&) = delete;
  OnTop& operator=(const OnTop&) = delete;
  ~OnTop() {
    desktop_.shown_.pop_back();
    desktop_.pumping_ = pumping_;
  }

 private:
  Win32Desktop& desktop_;
  bool pumping_;
};

HWND Win32Desktop::windowOf(const Form* form) const noexcept {
  for (const Shown& shown : shown_) {
    if (shown.window && &shown.window->form() == form) return shown.window->window();
  }
  return nullptr;
}

void Win32Desktop::run(const std::function<void()>& act) noexcept {
  const auto tell = [this](const char* what) noexcept {
    try {
      messageBox(what, MessageStyle::Critical, {});
    } catch (const std::exception& error) {
      OutputDebugStringA(error.what());
    }
  };
  try {
    if (!shown_.empty() && shown_.back().window) shown_.back().window->tellLeft();
    act();
  } catch (const std::exception& error) {
    tell(error.what());
  } catch (...) {
    tell("An unknown error has occurred!");
  }
  followAll();
}

// Closed or answered, but its loop has not ended yet.
bool Win32Desktop::topIsOver() const {
  if (shown_.empty()) return true;
  const Shown& top = shown_.back();
  return top.window ? !top.window->form().isOpen() : !IsWindowVisible(top.box->window);
}

void Win32Desktop::followAll() {
  for (const Shown& shown : shown_) {
    if (shown.window) shown.window->follow();
  }
}

HWND Win32Desktop::owner() const noexcept {
  if (!shown_.empty()) {
    const Shown& top = shown_.back();
    return top.window ? top.window->window() : top.box->window;
  }
  const HWND found = threadsWindow();
  return found || !IsWindow(mainWindow_) ? found : mainWindow_;
}

void Win32Desktop::showModal(Form& form) {
  const auto same = [&form](const Shown& shown) { return shown.window && &shown.window->form() == &form; };
  if (std::any_of(shown_.begin(), shown_.end(), same)) {
    throw Error(kAlreadyShown, form.name() + " is already shown");
  }
  const DpiScope dpi;
  FormWindow window(form, *this, fonts_, owner());
  bool refused = false;
  {
    const OnTop place(*this, {&window, nullptr});
    window.show();
    loop(window, [&] {
      SendMessageW(window.window(), WM_CLOSE, 0, 0);
      refused = form.isOpen();
      form.close();
    });
  }
  form.close();  // where the program ended under it
  if (refused) throw Error(ErrorNumber::InvalidCall, form.name() + " does not let itself be closed");
}

// As the platform's own dialogs wait: hooks see every message, and the owner hears that nothing is to be
// done.
void Win32Desktop::loop(FormWindow& window, const std::function<void()>& giveUp) {
  const HWND owner = GetWindow(window.window(), GW_OWNER);
  bool toldIdle = false;
  while (window.form().isOpen()) {
    MSG message;
    if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      if (message.message == WM_QUIT) {
        PostQuitMessage(static_cast<int>(message.wParam));  // for the loop outside
        return;
      }
      process(message);
      toldIdle = false;
    } else if (idle_) {
      letActOn(giveUp);
    } else if (!std::exchange(toldIdle, true)) {
      followAll();
      SendMessageW(owner, WM_ENTERIDLE, MSGF_DIALOGBOX, reinterpret_cast<LPARAM>(window.window()));
    } else {
      MsgWaitForMultipleObjectsEx(0, nullptr, INFINITE, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    }
  }
}

void Win32Desktop::process(MSG& message) {
  if (CallMsgFilterW(&message, MSGF_DIALOGBOX)) return;
  const HWND root = GetAncestor(message.hwnd, GA_ROOT);
  for (const Shown& shown : shown_) {
    if (shown.window && shown.window->window() == root && shown.window->translate(message)) return;
  }
  TranslateMessage(&message);
  DispatchMessageW(&message);
  // What a control shows when the focus leaves it would take the mouse away from a button that is held down.
  if (!isHeld(VK_LBUTTON) && !shown_.empty() && shown_.back().window) shown_.back().window->tellLeft();
}

void Win32Desktop::letActOn(const std::function<void()>& giveUp) {
  if (pumping_ || topIsOver()) return;  // the program is at work
  run([&] {
    if (!idle_ || !idle_->waiting()) giveUp();
  });
}

MessageResult Win32Desktop::messageBox(const std::string& text, MessageStyle style,
                                       const std::string& title) {
  followAll();
  OpenBox open{{Box::Kind::Message, title, text, style, {}}};
  boxes_.push_back(open.box);
  const DpiScope dpi;
  const ThemeScope theme;
  const HWND over = owner();
  const ModalScope modal(over);
  const OnTop place(*this, {nullptr, &open});
  const BoxWatch watch(*this, open,
                       [&] { pressButton(open, style == MessageStyle::Question ? IDNO : IDOK); });
  const int answer =
      MessageBoxW(over, wide(text).c_str(), wide(title.empty() ? kApplicationTitle : title).c_str(),
                  static_cast<UINT>(style));
  if (style == MessageStyle::Question) return answer == IDYES ? MessageResult::Yes : MessageResult::No;
  return MessageResult::Ok;
}

bool Win32Desktop::showBox(Box box, const std::function<bool(HWND owner)>& show) {
  followAll();
  OpenBox open{std::move(box)};
  boxes_.push_back(open.box);
  const DpiScope dpi;
  const ThemeScope theme;
  const HWND over = owner();
  const ModalScope modal(over);
  const OnTop place(*this, {nullptr, &open});
  const BoxWatch watch(*this, open, [&] { pressButton(open, IDCANCEL); });
  return show(over);
}

std::optional<std::string> Win32Desktop::pickFile(const FileRequest& request) {
  const std::wstring filters = filterText(request.filters), title = wide(request.title),
                     extension = wide(request.defaultExtension);
  std::wstring path(kLongestPath + 1, L'\0');
  OPENFILENAMEW picker{};
  picker.lStructSize = sizeof picker;
  picker.lpstrFilter = request.filters.empty() ? nullptr : filters.c_str();
  picker.lpstrFile = path.data();
  picker.nMaxFile = static_cast<DWORD>(path.size());
  picker.lpstrTitle = title.empty() ? nullptr : title.c_str();
  picker.lpstrDefExt = extension.empty() ? nullptr : extension.c_str();
  picker.Flags = OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
  const bool picked = showBox({Box::Kind::File, request.title, {}, {}, request}, [&](HWND over) {
    picker.hwndOwner = over;
    return GetOpenFileNameW(&picker) != FALSE;
  });
  return picked ? std::optional(narrow(path.c_str())) : std::nullopt;
}

std::optional<Colour> Win32Desktop::pickColour(Colour initial) {
  CHOOSECOLORW picker{};
  picker.lStructSize = sizeof picker;
  picker.rgbResult = screenColour(initial);
  picker.lpCustColors = ownColours_.data();
  picker.Flags = CC_RGBINIT | CC_ANYCOLOR | CC_FULLOPEN;
  const bool picked = showBox({.kind = Box::Kind::Palette, .colour = initial}, [&](HWND over) {
    picker.hwndOwner = over;
    return ChooseColorW(&picker) != FALSE;
  });
  return picked ? std::optional(static_cast<Colour>(picker.rgbResult)) : std::nullopt;
}

void Win32Desktop::doEvents() {
  if (idle_) idle_->yielding();
  using Clock = std::chrono::steady_clock;
  if (pumping_ || Clock::now() - lastPump_ < kPumpInterval) return;
  pumping_ = true;
  followAll();
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      break;
    }
    process(message);
  }
  pumping_ = false;
  lastPump_ = Clock::now();  // counted from the end, so that slow painting does not eat up the work's time
}

void Win32Desktop::layOut(Form& form, int dpi) {
  const int before = std::exchange(layoutDpi_, dpi);
  if (form.content.kind != layout::Node::Kind::Nothing) form.layOut(*this);
  layoutDpi_ = before;
}

void Win32Desktop::resize(Form& form, int dpi, Size size) {
  const int before = std::exchange(layoutDpi_, dpi);
  form.resize(*this, size);
  layoutDpi_ = before;
}

// Of the monitor on which the next dialog will be.
Units Win32Desktop::units() const noexcept {
  if (layoutDpi_ != 0) return Units(layoutDpi_);
  const DpiScope dpi;
  return Units(dpiAround(owner()));
}

Size Win32Desktop::naturalSize(const Control& control) {
  const DpiScope dpi;
  const Units scale = units();
  return scale.twips(naturalPixels(control, fonts_, scale));
}

Insets Win32Desktop::insets(const Container& container) {
  const DpiScope dpi;
  return naturalInsets(container, fonts_, units());
}

Size Win32Desktop::workArea() {
  const DpiScope dpi;
  const RECT area = workAreaAround(owner());
  return units().twips({area.right - area.left, area.bottom - area.top});
}

Size Win32Desktop::pixel() const {
  const int twips = units().twipsPerPixel();
  return {twips, twips};
}

}  // namespace vmgv

#include "hosts/gridhost/main_window_win32.h"

#include <algorithm>

#include "frontends/com/text.h"
#include "frontends/com/wall.h"
#include "hosts/gridhost/entries.h"
#include "hosts/player/paths.h"
#include "support/strings/string_module.h"

namespace vmgv {
namespace {

constexpr int kFirstButton = 100;
constexpr SIZE kFirstSize{1100, 680};  // pixels of a usual monitor, as all below
constexpr int kMargin = 8, kButtonWidth = 150, kButtonHeight = 26, kRowsWidth = 160;

bool inEnglish() { return processStringService().Language() == kEnglish; }

std::wstring textOf(Text text) {
  static MlStringModule strings;
  return wide(strings.GetResString(text));
}

// Without what the platform takes for the mark of a mnemonic.
std::wstring buttonText(Text text) {
  std::wstring caption = textOf(text);
  for (std::size_t i = 0; (i = caption.find(L'&', i)) != caption.npos; i += 2) caption.insert(i, 1, L'&');
  return caption;
}

HFONT messageFont(UINT dpi) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, dpi);
  return CreateFontIndirectW(&metrics.lfMessageFont);
}

}  // namespace

MainWindow::MainWindow(ComSession& session) : session_(session) {
  const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES};
  InitCommonControlsEx(&controls);
  const std::wstring table = pathOf(session.dataName()).filename().wstring(),
                     title = table + L" – vmGridViews";
  create(L"vmGridViews.gridhost", nullptr, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT,
         title.c_str());
  RECT desk{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &desk, 0);
  place(window(), desk.left, desk.top, std::min<int>(scaled(kFirstSize.cx), desk.right - desk.left),
        std::min<int>(scaled(kFirstSize.cy), desk.bottom - desk.top));
  grid_ = std::make_unique<ListGrid>(window(), session.engine());
  SetWindowTextW(grid_->rows().window(), table.c_str());  // its name for assistive technology
  makeButtons();
  status_ = CreateWindowExW(0, STATUSCLASSNAMEW, L"", WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, 0, 0, 0, 0,
                            window(), nullptr, nullptr, nullptr);
  showFont();
  const Problems& problems = session.problems();
  if (!problems.empty()) tell(problems.messages().front());
}

MainWindow::~MainWindow() { DeleteObject(font_); }

// A facet whose dialog this version lacks has its button, greyed.
void MainWindow::makeButtons() {
  for (const Entry& entry : kEntries) {
    const DWORD enabled = session_.offers(entry.facet) ? 0 : WS_DISABLED;
    const auto id = reinterpret_cast<HMENU>(static_cast<INT_PTR>(kFirstButton + buttons_.size()));
    buttons_.push_back(CreateWindowExW(0, WC_BUTTONW, buttonText(entry.caption).c_str(),
                                       WS_CHILD | WS_VISIBLE | WS_TABSTOP | enabled, 0, 0, 0, 0, window(), id,
                                       nullptr, nullptr));
  }
}

void MainWindow::showFont() {
  const HFONT before = std::exchange(font_, messageFont(GetDpiForWindow(window())));
  for (HWND child = GetWindow(window(), GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font_), TRUE);
  }
  if (before) DeleteObject(before);
  arrange();
}

void MainWindow::arrange() {
  if (!status_) return;
  const RECT inside = client();
  RECT bar{};
  SendMessageW(status_, WM_SIZE, 0, 0);
  GetWindowRect(status_, &bar);
  const int parts[] = {inside.right - scaled(kRowsWidth), -1};
  SendMessageW(status_, SB_SETPARTS, std::size(parts), reinterpret_cast<LPARAM>(parts));
  SendMessageW(status_, SB_SETTEXTW, 1, reinterpret_cast<LPARAM>(wide(rowsText()).c_str()));

  const int margin = scaled(kMargin), width = scaled(kButtonWidth), height = scaled(kButtonHeight);
  const int left = inside.right - width - margin;
  int top = margin;
  for (const HWND button : buttons_) {
    place(button, left, top, width, height);
    top += height + margin / 2;
  }
  place(grid_->window(), margin, margin, left - 2 * margin,
        inside.bottom - (bar.bottom - bar.top) - 2 * margin);
}

std::string MainWindow::rowsText() const {
  std::string number = std::to_string(session_.engine()->records());
  for (int i = static_cast<int>(number.size()) - 3; i > 0; i -= 3) number.insert(i, inEnglish() ? "," : ".");
  return number + (inEnglish() ? " rows" : " γραμμές");
}

void MainWindow::show() {
  ShowWindow(window(), SW_SHOW);
  SetFocus(grid_->window());
  UpdateWindow(window());
}

void MainWindow::tell(const std::string& text) {
  SendMessageW(status_, SB_SETTEXTW, 0, reinterpret_cast<LPARAM>(wide(text).c_str()));
}

void MainWindow::run() {
  for (MSG message; GetMessageW(&message, nullptr, 0, 0) > 0;) {
    if (window() && IsDialogMessageW(window(), &message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void MainWindow::open(const char* method) noexcept {
  try {
    session_.control().call(Member(method));
  } catch (const std::exception& error) {
    MessageBoxW(window(), wide(error.what()).c_str(), nullptr, MB_OK | MB_ICONERROR);
  }
}

std::optional<LRESULT> MainWindow::handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND: {
      const std::size_t button = LOWORD(wParam) - kFirstButton;
      if (HIWORD(wParam) == BN_CLICKED && button < std::size(kEntries)) open(kEntries[button].method);
      return 0;
    }
    case WM_SIZE: arrange(); return 0;
    case WM_SETFOCUS:
      if (grid_) SetFocus(grid_->window());
      return 0;
    case WM_DPICHANGED: {
      const RECT& wanted = *reinterpret_cast<const RECT*>(lParam);
      place(window(), wanted.left, wanted.top, wanted.right - wanted.left, wanted.bottom - wanted.top);
      showFont();
      return 0;
    }
    case WM_DESTROY: PostQuitMessage(0); return 0;
    default: return {};
  }
}

}  // namespace vmgv

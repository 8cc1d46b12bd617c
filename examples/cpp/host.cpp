// A host in C++: the control in the system's own container, beside a grid, with a button that opens the sort
// dialog.
//   example_host           stays until its window is closed
//   example_host --close   shows itself, tells what it has, and ends
#include <ole2.h>
//
#include <cstdio>
#include <cstring>

#include "adapters/grid/engine.h"
#include "adapters/grid/grid_object.h"
#include "frontends/com/bridge.h"
#include "frontends/com/text.h"
#include "frontends/com/wall.h"
#include "support/automation/convert.h"

namespace vmgv {
namespace {

constexpr int kSortButton = 1;

class Cities final : public RowSource {
 public:
  std::string name() const override { return "cities"; }
  std::vector<ColumnSpec> columns() override {
    return {{"Country"}, {"City"}, {"Founded", {}, ColumnType::Whole}};
  }
  void read(RowSink& rows, Problems&) override {
    const struct {
      const char *country, *city;
      int founded;
    } cities[] = {{"Greece", "Thessaloniki", -315}, {"Egypt", "Alexandria", -331}, {"Italy", "Naples", -600}};
    for (const auto& each : cities) {
      rows.text(each.country);
      rows.text(each.city);
      rows.whole(each.founded);
      rows.endRow();
    }
  }
};

// The container: a window of the class AtlAxWin hosts what its title names.
ComPtr<IDispatch> controlIn(HWND parent) {
  const HMODULE atl = LoadLibraryW(L"atl.dll");
  const auto function = [atl](const char* name) {
    return atl ? reinterpret_cast<void*>(GetProcAddress(atl, name)) : nullptr;
  };
  const auto start = reinterpret_cast<BOOL(WINAPI*)()>(function("AtlAxWinInit"));
  const auto controlOf = reinterpret_cast<HRESULT(WINAPI*)(HWND, IUnknown**)>(function("AtlAxGetControl"));
  if (!start || !controlOf || !start())
    throw Error(ErrorNumber::CannotCreateObject, "atl.dll has no container");

  const HWND site = CreateWindowExW(0, L"AtlAxWin", L"vmGridViews.vmgrEdit", WS_CHILD | WS_VISIBLE, 8, 8, 16,
                                    16, parent, nullptr, nullptr, nullptr);
  ComPtr<IUnknown> control;
  if (!site || FAILED(controlOf(site, control.put())) || !control) {
    throw Error(ErrorNumber::CannotCreateObject, "vmGridViews.vmgrEdit is not registered");
  }
  return control.as<IDispatch>();
}

struct Host {
  std::shared_ptr<GridEngine> table = std::make_shared<GridEngine>();
  ObjectRef editor;

  void sort() const {
    editor.call("ShowSort");
    for (const SortKey& key : table->sortKeys()) {
      std::printf("%s %s\n", table->column(key.colIndex).caption.c_str(),
                  key.sortOrder < 0 ? "descending" : "ascending");
    }
    std::fflush(stdout);
  }
};

LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const auto* host = reinterpret_cast<const Host*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  switch (message) {
    case WM_COMMAND:
      if (host && LOWORD(wParam) == kSortButton) host->sort();
      return 0;
    case WM_DESTROY: PostQuitMessage(0); return 0;
    default: return DefWindowProcW(window, message, wParam, lParam);
  }
}

void run(bool close) {
  WNDCLASSW look{};
  look.lpfnWndProc = procedure;
  look.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  look.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  look.lpszClassName = L"example_host";
  RegisterClassW(&look);
  const HWND window = CreateWindowExW(0, look.lpszClassName, L"Cities", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                                      CW_USEDEFAULT, 320, 160, nullptr, nullptr, nullptr, nullptr);
  CreateWindowExW(0, L"BUTTON", L"&Sort...", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 40, 8, 90, 26, window,
                  reinterpret_cast<HMENU>(INT_PTR{kSortButton}), nullptr, nullptr);

  Host host;
  Cities cities;
  host.table->load(cities);
  host.editor = wrapDispatch(controlIn(window).get());
  host.editor.putRef("Grid", makeGridObject(host.table));
  SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&host));
  ShowWindow(window, SW_SHOW);
  if (close) {
    const ObjectRef grid = host.editor.object("Grid");
    std::printf("a grid of %d columns\n", static_cast<int>(toLong(grid.object("Columns").get("Count"))));
    PostMessageW(window, WM_CLOSE, 0, 0);
  }
  for (MSG message; GetMessageW(&message, nullptr, 0, 0) > 0;) {
    if (IsDialogMessageW(window, &message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

}  // namespace
}  // namespace vmgv

int main(int count, char** arguments) {
  vmgv::check(OleInitialize(nullptr));
  int status = 0;
  try {
    vmgv::run(count > 1 && std::strcmp(arguments[1], "--close") == 0);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "example_host: %s\n", error.what());
    status = 1;
  }
  OleUninitialize();
  return status;
}

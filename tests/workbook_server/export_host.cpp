// export_host CONTROL.dll TABLE.csv: a host with a grid of its own that sorts it, hands it to the control and
// lets its export dialog run, as a user would who only clicks OK.
#include <cstdio>
#include <cstdlib>
//
#include <initguid.h>  // makes the library's header define its ids
//
#include "vmgridviews.h"

#include "adapters/grid/grid_object.h"
#include "adapters/grid/row_source.h"
#include "frontends/com/bridge.h"
#include "frontends/com/com_object.h"
#include "frontends/com/text.h"
#include "frontends/com/wall.h"
#include "frontends/win32/window_walk.h"
#include "support/automation/convert.h"

using namespace vmgv;

namespace {

std::wstring textOf(HWND window) {
  wchar_t text[1024] = L"";
  GetWindowTextW(window, text, static_cast<int>(std::size(text)));
  return text;
}

// Clicks each dialog's OK once.
bool useDialog(HWND window) {
  static HWND used = nullptr;
  if (!IsWindowVisible(window) || window == used) return true;
  if (const HWND message = GetDlgItem(window, 0xFFFF)) {  // of a message box; nothing was to be said
    std::printf("message: %s\n", narrow(textOf(message)).c_str());
    PostMessageW(window, WM_COMMAND, IDOK, 0);
    return false;
  }
  eachChild(window, [window](HWND child) {
    if (textOf(child) != L"OK" || !IsWindowEnabled(child)) return true;
    used = window;
    return PostMessageW(child, BM_CLICK, 0, 0) == FALSE;
  });
  return used != window;
}

void CALLBACK look(HWND, UINT, UINT_PTR, DWORD) { eachThreadWindow(useDialog); }

// The control without being registered.
ObjectRef makeControl(const char* path) {
  const HMODULE library = LoadLibraryW(wide(path).c_str());
  if (!library) check(HRESULT_FROM_WIN32(GetLastError()), path);
  const auto get = reinterpret_cast<decltype(&DllGetClassObject)>(
      reinterpret_cast<void*>(GetProcAddress(library, "DllGetClassObject")));
  ComPtr<IClassFactory> factory;
  check(get(CLSID_vmgrEdit, IID_IClassFactory, factory.putVoid()));
  ComPtr<IDispatch> control;
  check(factory->CreateInstance(nullptr, IID_IDispatch, control.putVoid()));
  return wrapDispatch(control.get());
}

void sortBy(const ObjectRef& grid, const char* field, std::int16_t order) {
  const ObjectRef columns = grid.object("Columns");
  for (std::int32_t i = 1; i <= toLong(columns.get("Count")); ++i) {
    if (columns.item(i).object().get("DataField") == Value(field))
      grid.object("SortKeys").call("Add", i, order);
  }
}

void run(const char* library, const char* table) {
  const auto engine = std::make_shared<GridEngine>();
  engine->load(*openRowSource(table));
  const ObjectRef grid = makeGridObject(engine);
  sortBy(grid, "origin_state", 1);
  sortBy(grid, "flight_date", -1);
  sortBy(grid, "cost_total", -1);

  const ObjectRef control = makeControl(library);
  control.putRef("Grid", grid);
  const UINT_PTR timer = SetTimer(nullptr, 0, 50, look);
  const DWORD start = GetTickCount();
  control.call("ShowExcel");
  std::fprintf(stderr, "%lu ms for dialog and export\n", GetTickCount() - start);
  KillTimer(nullptr, timer);
}

}  // namespace

int main(int, char** arguments) {
  if (FAILED(OleInitialize(nullptr))) return 1;
  int status = 0;
  try {
    run(arguments[1], arguments[2]);
  } catch (const Error& error) {
    std::printf("%d %s\n", static_cast<int>(error.number()), error.description());
    status = 1;
  }
  std::printf("%ld objects left\n", livingComObjects());
  std::fflush(stdout);
  OleUninitialize();
  return status;
}

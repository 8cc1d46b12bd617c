// gridhost.exe: a table in a grid, with the control beside it.
#include <windows.h>

#include <vector>

#include "frontends/com/text.h"
#include "hosts/gridhost/run.h"

namespace {

// A console of its own stands behind the window of a program that was not started from one.
void hideOwnConsole() {
  DWORD programs[2];
  if (GetConsoleProcessList(programs, 2) == 1) FreeConsole();
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
  hideOwnConsole();
  SetConsoleOutputCP(CP_UTF8);
  std::vector<std::string> arguments;
  for (int i = 1; i < argc; ++i) arguments.push_back(vmgv::narrow(argv[i]));
  return vmgv::runGridhost(arguments);
}

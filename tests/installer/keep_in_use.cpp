// keep_in_use FILE: keeps a file open until somebody ends it, as Windows does with a library that is loaded;
// under Wine that one could be replaced.
#include <windows.h>

#include <cstdio>

int wmain(int, wchar_t** arguments) {
  if (CreateFileW(arguments[1], GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr) ==
      INVALID_HANDLE_VALUE) {
    return 1;
  }
  std::puts("done");
  std::fflush(stdout);
  Sleep(INFINITE);
  return 0;
}

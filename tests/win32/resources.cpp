#include "tests/win32/resources.h"

#include <windows.h>

#include <winternl.h>

#include "frontends/win32/window_walk.h"

namespace vmgv {
namespace {

std::size_t countWindows() {
  std::size_t count = 0;
  eachThreadWindow([&](HWND window) {
    eachChild(window, [&](HWND) { return ++count, true; });
    return ++count, true;
  });
  return count;
}

// The process's table of handles lies where its environment block says; an entry that has a type is in use.
std::size_t countGdiObjects() {
  struct Entry {
    ULONG64 object;
    USHORT process, uses;
    UCHAR type, generation, extendedType, flags;
    ULONG64 user;
  };
  constexpr std::size_t kTableOffset = sizeof(void*) == 8 ? 0xF8 : 0x94, kEntries = 0x4000;
  const auto* block = reinterpret_cast<const char*>(NtCurrentTeb()->ProcessEnvironmentBlock);
  const auto* table = *reinterpret_cast<const Entry* const*>(block + kTableOffset);
  std::size_t count = 0;
  for (std::size_t i = 0; i < kEntries; ++i) {
    if ((table[i].type & 0x1F) != 0) ++count;
  }
  return count;
}

// A new handle takes the lowest number that is free, so what piles up pushes it upwards.
std::size_t nextKernelHandle() {
  const HANDLE handle = CreateEventW(nullptr, FALSE, FALSE, nullptr);
  CloseHandle(handle);
  return reinterpret_cast<std::size_t>(handle);
}

std::size_t countHeapBlocks() {
  HANDLE heaps[64];
  const DWORD found = GetProcessHeaps(64, heaps);
  std::size_t count = 0;
  for (DWORD i = 0; i < found; ++i) {
    HeapLock(heaps[i]);
    PROCESS_HEAP_ENTRY entry{};
    while (HeapWalk(heaps[i], &entry)) {
      if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) ++count;
    }
    HeapUnlock(heaps[i]);
  }
  return count;
}

}  // namespace

Resources countResources() {
  return {{countWindows(), countGdiObjects(), nextKernelHandle()}, countHeapBlocks()};
}

}  // namespace vmgv

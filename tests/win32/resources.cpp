#include "tests/win32/resources.h"

#include <windows.h>

#include <winternl.h>

#include <algorithm>
#include <cstdint>

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

// The process's table of handles lies where its environment block says. On a 64-bit system only the 64-bit
// block of a 32-bit program does, which is found by way of a field that such programs have no other use for.
const void* gdiTable() {
  const auto at = [](std::uint64_t address) {
    return *reinterpret_cast<const std::uint64_t*>(static_cast<std::uintptr_t>(address));
  };
  constexpr std::size_t kBlock64 = 0x60, kTable64 = 0xF8, kTable32 = 0x94, kThread64 = 0xF70;  // bytes
  const auto thread = reinterpret_cast<std::uintptr_t>(NtCurrentTeb());
  const auto block = reinterpret_cast<std::uintptr_t>(NtCurrentTeb()->ProcessEnvironmentBlock);
  std::uint64_t table = 0;
  if constexpr (sizeof(void*) == 8) {
    table = at(block + kTable64);
  } else if (const auto thread64 = *reinterpret_cast<const std::uint32_t*>(thread + kThread64)) {
    table = at(at(thread64 + kBlock64) + kTable64);
  } else {
    table = *reinterpret_cast<const std::uint32_t*>(block + kTable32);
  }
  return reinterpret_cast<const void*>(static_cast<std::uintptr_t>(table));
}

// An entry that has a type is in use.
std::size_t countGdiObjects() {
  struct Entry {
    std::uint64_t object;
    std::uint16_t process, uses;
    std::uint8_t type, generation, extendedType, flags;
    std::uint64_t user;
  };
  constexpr std::size_t kEntries = 0x4000;
  const auto* const table = static_cast<const Entry*>(gdiTable());
  return static_cast<std::size_t>(
      std::count_if(table, table + kEntries, [](const Entry& entry) { return (entry.type & 0x1F) != 0; }));
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

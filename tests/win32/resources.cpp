#include "tests/win32/resources.h"

#include <windows.h>

#include <winternl.h>

#include <vector>

#include "frontends/win32/window_walk.h"

namespace vmgv {
namespace {

std::size_t countWindows() {
  std::size_t count = 0;
  const auto one = [&count](HWND) { return ++count, true; };
  eachThreadWindow([&](HWND window) {
    eachChild(window, one);
    return one(window);
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
  PROCESS_BASIC_INFORMATION process{};
  NtQueryInformationProcess(GetCurrentProcess(), ProcessBasicInformation, &process, sizeof process, nullptr);
  const auto* block = reinterpret_cast<const char*>(process.PebBaseAddress);
  const auto* table = *reinterpret_cast<const Entry* const*>(block + kTableOffset);
  std::size_t count = 0;
  for (std::size_t i = 0; i < kEntries; ++i) {
    if ((table[i].type & 0x1F) != 0) ++count;
  }
  return count;
}

std::size_t countKernelHandles() {
  struct Entry {
    ULONG process;
    UCHAR type, flags;
    USHORT handle;
    void* object;
    ULONG access;
  };
  struct Table {
    ULONG count;
    Entry entries[1];
  };
  constexpr auto kSystemHandles = static_cast<SYSTEM_INFORMATION_CLASS>(16);
  std::vector<char> memory(1 << 20);
  while (NtQuerySystemInformation(kSystemHandles, memory.data(), static_cast<ULONG>(memory.size()), nullptr) <
         0) {
    memory.resize(memory.size() * 2);
  }
  const auto& table = *reinterpret_cast<const Table*>(memory.data());
  std::size_t count = 0;
  for (ULONG i = 0; i < table.count; ++i) {
    if (table.entries[i].process == GetCurrentProcessId()) ++count;
  }
  return count;
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
  return {countWindows(), countGdiObjects(), countKernelHandles(), countHeapBlocks()};
}

}  // namespace vmgv

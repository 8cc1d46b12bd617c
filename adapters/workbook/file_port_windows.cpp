#include <windows.h>

#include "adapters/workbook/file_port.h"
#include "adapters/workbook/paths.h"

namespace vmgv::workbook::port {
namespace {

HANDLE handleOf(Handle file) noexcept { return reinterpret_cast<HANDLE>(file); }

int lastError() noexcept { return static_cast<int>(GetLastError()); }

}  // namespace

Handle create(const std::string& path, Stay stay, int& error) {
  const bool passing = stay == Stay::Passing;
  const DWORD shared = passing ? FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE : FILE_SHARE_READ;
  // Nobody is to see a working file: it has a name for as long as it is open.
  const DWORD kind = passing ? FILE_ATTRIBUTE_TEMPORARY | FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE
                             : FILE_ATTRIBUTE_NORMAL;
  const HANDLE made = CreateFileW(pathOf(path).c_str(), GENERIC_READ | FILE_APPEND_DATA | DELETE, shared,
                                  nullptr, CREATE_NEW, kind, nullptr);
  error = made == INVALID_HANDLE_VALUE ? lastError() : 0;
  return reinterpret_cast<Handle>(made);  // the invalid one is -1, as kNoFile
}

Handle open(const std::string& path, std::uint64_t& size, int& error) {
  const DWORD shared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const HANDLE opened = CreateFileW(pathOf(path).c_str(), GENERIC_READ, shared, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
  LARGE_INTEGER bytes{};
  const bool known = opened != INVALID_HANDLE_VALUE && GetFileSizeEx(opened, &bytes);
  error = known ? 0 : lastError();
  size = static_cast<std::uint64_t>(bytes.QuadPart);
  if (known) return reinterpret_cast<Handle>(opened);
  if (opened != INVALID_HANDLE_VALUE) CloseHandle(opened);
  return kNoFile;
}

bool isTaken(int error) noexcept { return error == ERROR_FILE_EXISTS || error == ERROR_ALREADY_EXISTS; }

int append(Handle file, std::string_view bytes) noexcept {
  constexpr std::size_t kMost = 1u << 30;  // a call counts in 32 bits
  while (!bytes.empty()) {
    const auto size = static_cast<DWORD>(bytes.size() < kMost ? bytes.size() : kMost);
    DWORD written = 0;
    if (!WriteFile(handleOf(file), bytes.data(), size, &written, nullptr)) return lastError();
    if (written == 0) return ERROR_DISK_FULL;
    bytes.remove_prefix(written);
  }
  return 0;
}

int read(Handle file, std::uint64_t offset, char* bytes, std::size_t size, std::size_t& count) noexcept {
  OVERLAPPED place{};
  place.Offset = static_cast<DWORD>(offset);
  place.OffsetHigh = static_cast<DWORD>(offset >> 32);
  DWORD got = 0;
  const BOOL done = ReadFile(handleOf(file), bytes, static_cast<DWORD>(size), &got, &place);
  count = got;
  if (done) return 0;
  const int error = lastError();
  return error == ERROR_HANDLE_EOF ? 0 : error;
}

int close(Handle file) noexcept { return CloseHandle(handleOf(file)) ? 0 : lastError(); }

int replace(const std::string& path, const std::string& target) noexcept {
  const DWORD how = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
  return MoveFileExW(pathOf(path).c_str(), pathOf(target).c_str(), how) ? 0 : lastError();
}

void remove(const std::string& path) noexcept { DeleteFileW(pathOf(path).c_str()); }

unsigned long processId() noexcept { return GetCurrentProcessId(); }

ErrorNumber numberOf(int error) noexcept {
  switch (error) {
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case ERROR_FILE_TOO_LARGE: return ErrorNumber::DiskFull;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_INVALID_DRIVE:
    case ERROR_DIRECTORY:
    case ERROR_FILENAME_EXCED_RANGE: return ErrorNumber::PathAccess;
    default: return ErrorNumber::DeviceIo;
  }
}

std::string messageOf(int error) {
  wchar_t text[512];
  DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                static_cast<DWORD>(error), 0, text, std::size(text), nullptr);
  while (length > 0 && (text[length - 1] <= L' ' || text[length - 1] == L'.')) --length;
  if (length == 0) return "error " + std::to_string(error);
  return textOf(std::filesystem::path(std::wstring_view(text, length)));
}

}  // namespace vmgv::workbook::port

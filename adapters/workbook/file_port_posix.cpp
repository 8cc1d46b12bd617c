#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>

#include "adapters/workbook/file_port.h"

namespace vmgv::workbook::port {
namespace {

int descriptorOf(Handle file) noexcept { return static_cast<int>(file); }

}  // namespace

Handle create(const std::string& path, Stay stay, int& error) {
  const int descriptor = ::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  error = descriptor < 0 ? errno : 0;
  if (descriptor >= 0 && stay == Stay::Passing) unlink(path.c_str());
  return descriptor;
}

Handle open(const std::string& path, std::uint64_t& size, int& error) {
  const int descriptor =
      ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);  // a pipe would wait for ever
  struct stat facts {};
  error = descriptor < 0 || fstat(descriptor, &facts) != 0 ? errno : 0;
  if (error == 0 && !S_ISREG(facts.st_mode)) error = S_ISDIR(facts.st_mode) ? EISDIR : EINVAL;
  if (error == 0) {
    size = static_cast<std::uint64_t>(facts.st_size);
    return descriptor;
  }
  if (descriptor >= 0) ::close(descriptor);
  return kNoFile;
}

bool isTaken(int error) noexcept { return error == EEXIST; }

int append(Handle file, std::string_view bytes) noexcept {
  while (!bytes.empty()) {
    const ssize_t written = write(descriptorOf(file), bytes.data(), bytes.size());
    if (written >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno != EINTR) {
      return errno;
    }
  }
  return 0;
}

int read(Handle file, std::uint64_t offset, char* bytes, std::size_t size, std::size_t& count) noexcept {
  for (;;) {
    const ssize_t got = pread(descriptorOf(file), bytes, size, static_cast<off_t>(offset));
    count = got < 0 ? 0 : static_cast<std::size_t>(got);
    if (got >= 0) return 0;
    if (errno != EINTR) return errno;
  }
}

int close(Handle file) noexcept { return ::close(descriptorOf(file)) == 0 ? 0 : errno; }

int replace(const std::string& path, const std::string& target) noexcept {
  return std::rename(path.c_str(), target.c_str()) == 0 ? 0 : errno;
}

void remove(const std::string& path) noexcept { unlink(path.c_str()); }

unsigned long processId() noexcept { return static_cast<unsigned long>(getpid()); }

ErrorNumber numberOf(int error) noexcept {
  switch (error) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG: return ErrorNumber::DiskFull;
    case EACCES:
    case EPERM:
    case EROFS:
    case ENOENT:
    case ENOTDIR:
    case EISDIR:
    case EINVAL:
    case ENAMETOOLONG:
    case ELOOP: return ErrorNumber::PathAccess;
    default: return ErrorNumber::DeviceIo;
  }
}

std::string messageOf(int error) { return std::generic_category().message(error); }

}  // namespace vmgv::workbook::port

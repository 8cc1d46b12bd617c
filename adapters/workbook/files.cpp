// POSIX files with errors that name the path and the reason.
#include "adapters/workbook/files.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

#include "support/automation/error.h"

namespace vmgv::workbook {
namespace {

ErrorNumber errorNumber(int error) {
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
    case ENAMETOOLONG:
    case ELOOP: return ErrorNumber::PathAccess;
    default: return ErrorNumber::DeviceIo;
  }
}

// Makes a file of a name that was free in the folder; `path` receives the name.
int createIn(const std::string& folder, std::string& path) {
  static unsigned serial = 0;
  for (;;) {
    path = (std::filesystem::path(folder) /
            (".vmgv-" + std::to_string(getpid()) + "-" + std::to_string(++serial) + ".tmp"))
               .string();
    const int descriptor = open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor >= 0 || errno != EEXIST) return descriptor;
  }
}

int openSpool(const std::string& folder) {
  std::string path;
  const int descriptor = createIn(folder, path);
  if (descriptor < 0) throwFileError("No file can be made in the folder " + folder, errno);
  unlink(path.c_str());
  return descriptor;
}

}  // namespace

void throwFileError(const std::string& what, int error) {
  throw Error(errorNumber(error), what + ": " + std::generic_category().message(error));
}

std::string folderOf(const std::string& path) {
  const std::string folder = std::filesystem::path(path).parent_path().string();
  return folder.empty() ? "." : folder;
}

File::File(File&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}

File::~File() { close(); }

int File::write(std::string_view bytes) noexcept {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
    if (written >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno != EINTR) {
      return errno;
    }
  }
  return 0;
}

int File::close() noexcept {
  const int descriptor = std::exchange(descriptor_, -1);
  return descriptor < 0 || ::close(descriptor) == 0 ? 0 : errno;
}

SpoolFile::SpoolFile(const std::string& folder) : folder_(folder), file_(openSpool(folder)) {}

void SpoolFile::append(std::string_view bytes) {
  if (const int error = file_.write(bytes)) {
    throwFileError("The workbook cannot be written into the folder " + folder_, error);
  }
}

std::size_t SpoolFile::read(std::uint64_t offset, char* bytes, std::size_t size) const {
  for (;;) {
    const ssize_t count = pread(file_.descriptor(), bytes, size, static_cast<off_t>(offset));
    if (count >= 0) return static_cast<std::size_t>(count);
    if (errno != EINTR) throwFileError("The workbook's working file in the folder " + folder_, errno);
  }
}

ReplacementFile::ReplacementFile(const std::string& target)
    : target_(target), file_(createIn(folderOf(target), path_)) {
  if (file_.descriptor() < 0) fail(errno);
}

ReplacementFile::~ReplacementFile() {
  if (!path_.empty()) unlink(path_.c_str());
}

void ReplacementFile::fail(int error) const {
  throwFileError("The workbook " + target_ + " cannot be written", error);
}

void ReplacementFile::commit() {
  // Some file systems tell only now that they had no room.
  if (const int error = file_.close()) fail(error);
  if (std::rename(path_.c_str(), target_.c_str()) != 0) fail(errno);
  path_.clear();
}

}  // namespace vmgv::workbook

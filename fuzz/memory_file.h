// A fuzzer's input as a file that can be opened by its path, without a disk.
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

namespace vmgv::fuzz {

class MemoryFile {
 public:
  explicit MemoryFile(std::string_view bytes) : file_(memfd_create("fuzz", 0)) {
    if (write(file_, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) std::abort();
  }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;
  ~MemoryFile() { close(file_); }

  std::string path() const { return "/proc/self/fd/" + std::to_string(file_); }

 private:
  int file_;
};

// A folder in memory for what a target writes, one for each process.
inline const std::filesystem::path& scratchFolder() {
  static const std::filesystem::path folder = [] {
    const std::filesystem::path made = "/dev/shm/vmgv-fuzz-" + std::to_string(getpid());
    std::filesystem::create_directories(made);
    std::atexit([] { std::filesystem::remove_all(scratchFolder()); });
    return made;
  }();
  return folder;
}

}  // namespace vmgv::fuzz

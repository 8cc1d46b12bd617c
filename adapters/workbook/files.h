// The files behind a workbook: a working file that goes by itself, and the file that takes the workbook's
// place in one step.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "adapters/workbook/file_port.h"

namespace vmgv::workbook {

// Throws Error 61, 75 or 57 for the system's error number: "WHAT: REASON".
[[noreturn]] void throwFileError(const std::string& what, int error);

// The folder of a file, "." where the path names none.
std::string folderOf(const std::string& path);

// An open file, or none; it closes with this object.
class File {
 public:
  File() noexcept = default;
  explicit File(port::Handle handle) noexcept : handle_(handle) {}
  File(File&& other) noexcept;
  File& operator=(File&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  ~File();

  bool isOpen() const noexcept { return handle_ != port::kNoFile; }
  port::Handle handle() const noexcept { return handle_; }
  int append(std::string_view bytes) noexcept { return port::append(handle_, bytes); }  // the error, or 0
  int close() noexcept;                                                                 // likewise

 private:
  port::Handle handle_ = port::kNoFile;
};

// A file to read from.
class InputFile {
 public:
  explicit InputFile(const std::string& path);  // Error 75 or 57 where it cannot be read

  std::uint64_t size() const noexcept { return size_; }  // when it was opened
  // Fewer than `size` bytes only at the file's end.
  std::string read(std::uint64_t offset, std::size_t size) const;

 private:
  std::string path_;
  File file_;
  std::uint64_t size_ = 0;
};

// A working file in a folder; nothing remains of it however the program ends.
class SpoolFile {
 public:
  explicit SpoolFile(const std::string& folder);

  void append(std::string_view bytes);
  // Up to `size` bytes from `offset` on into `bytes`; how many there were.
  std::size_t read(std::uint64_t offset, char* bytes, std::size_t size) const;

 private:
  std::string folder_;
  File file_;
};

// A file that is written beside its target under a passing name and takes the target's place when it is
// complete. Until then, and where anything fails, the target is as it was and the passing name goes.
class ReplacementFile {
 public:
  explicit ReplacementFile(const std::string& target);
  ReplacementFile(const ReplacementFile&) = delete;
  ReplacementFile& operator=(const ReplacementFile&) = delete;
  ~ReplacementFile();

  void append(std::string_view bytes);
  void commit();

 private:
  [[noreturn]] void fail(int error) const;

  std::string target_;
  std::string path_;
  File file_;
};

}  // namespace vmgv::workbook

// The files behind a workbook: a working file without a name, and the file that takes its place in one step.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vmgv::workbook {

// Throws Error 61, 75 or 57 for the system's error number: "WHAT: REASON".
[[noreturn]] void throwFileError(const std::string& what, int error);

// The folder of a file, "." where the path names none.
std::string folderOf(const std::string& path);

// An open file; the descriptor closes with it.
class File {
 public:
  explicit File(int descriptor) noexcept : descriptor_(descriptor) {}
  File(File&& other) noexcept;
  File& operator=(File&&) = delete;
  ~File();

  int descriptor() const noexcept { return descriptor_; }
  int write(std::string_view bytes) noexcept;  // 0, or the system's error number
  int close() noexcept;                        // likewise

 private:
  int descriptor_;
};

// A working file in a folder. It has no name there, so nothing remains of it however the program ends.
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

  File& file() noexcept { return file_; }
  [[noreturn]] void fail(int error) const;
  void commit();

 private:
  std::string target_;
  std::string path_;
  File file_;
};

}  // namespace vmgv::workbook

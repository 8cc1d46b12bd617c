// Reads the zip container of an existing workbook. Whoever made the file, reading it takes no more memory and
// time than the container's directory promises, and a promise that is out of proportion is refused.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/workbook/files.h"

namespace vmgv::workbook {

// Throws Error 1004: "The workbook PATH cannot be opened: REASON".
[[noreturn]] void refuseWorkbook(const std::string& path, const std::string& reason);

struct PackagePart {
  std::string name;              // "xl/workbook.xml"
  bool deflated = false;         // or stored
  std::uint32_t crc = 0;         // of its text
  std::uint64_t packedSize = 0;  // bytes
  std::uint64_t textSize = 0;    // bytes
  std::uint64_t offset = 0;      // of its own header in the file
};

class PackageReader {
 public:
  // Error 75 for a file that is not there or cannot be read, 1004 for one that is no such container, naming
  // what it is instead where that can be told: empty, protected by a password, of the old format.
  explicit PackageReader(const std::string& path) : PackageReader(path, path) {}
  // Reads another file than the one that it speaks of.
  PackageReader(std::string path, const std::string& file);

  const std::string& path() const noexcept { return path_; }
  const std::vector<PackagePart>& parts() const noexcept { return parts_; }
  const PackagePart* find(std::string_view name) const;  // in any case, as the format has it; null: none
  // The text in pieces, whose size and checksum are right when this returns; else Error 1004.
  void read(const PackagePart& part, const std::function<void(std::string_view)>& sink) const;
  void readPacked(const PackagePart& part, const std::function<void(std::string_view)>& sink) const;
  // The whole of a part of at most 64 MB.
  std::string text(const PackagePart& part) const;

  [[noreturn]] void refuse(const std::string& reason) const { refuseWorkbook(path_, reason); }

 private:
  std::string bytes(std::uint64_t offset, std::uint64_t size) const;
  // Hands on a part's packed bytes; refuses the file where they are not there or `sink` returns false.
  template <class Sink>
  void eachBlock(const PackagePart& part, Sink sink) const;
  void requireContainer() const;
  std::string directory() const;
  void readDirectory();
  std::uint64_t addPart(std::string_view record);

  std::string path_;
  InputFile file_;
  std::vector<PackagePart> parts_;
};

}  // namespace vmgv::workbook

// The folder that a script writes into, and nowhere else.
#pragma once

#include <filesystem>
#include <functional>
#include <ostream>
#include <string>

namespace vmgv {

class OutFolder {
 public:
  explicit OutFolder(std::filesystem::path folder) : folder_(std::move(folder)) {}

  const std::filesystem::path& path() const noexcept { return folder_; }

  // A file below the folder; its folders are created. CannotDo for names that lead elsewhere, and where a
  // folder cannot be created.
  std::filesystem::path file(const std::string& name) const;

  // Writes a whole file or none: what is written lies beside it until it is complete. CannotDo where it
  // cannot be written; what `content` throws passes through.
  void write(const std::string& name, const std::function<void(std::ostream&)>& content) const;

 private:
  std::filesystem::path folder_;
};

}  // namespace vmgv

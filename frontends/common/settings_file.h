// Machine-wide settings from a small text file, where the platform has no registry:
//
//   # comment
//   [SOFTWARE\Velmora\Common]
//   helpFolder = /usr/share/vmGridViews/help
//
// A section is a key's path. Keys and names ignore the case of ASCII letters, the last of equal names counts,
// and a value runs to the end of its line.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace vmgv {

class SettingsFile {
 public:
  // Reads the first of the files that exists; with none of them there are no settings and no message.
  static SettingsFile readFirst(const std::vector<std::filesystem::path>& files);

  // The default where the file does not say.
  std::string value(const std::string& key, const std::string& name, const std::string& defaultValue) const;

  void set(const std::string& key, const std::string& name, std::string value);

  // What could not be read, as "FILE:LINE: reason"; the rest of the file counts.
  const std::vector<std::string>& messages() const noexcept { return messages_; }

 private:
  void read(const std::filesystem::path& file);
  void readText(const std::string& fileName, const std::string& text);

  std::map<std::pair<std::string, std::string>, std::string> values_;  // key and name in lower case
  std::vector<std::string> messages_;
};

}  // namespace vmgv

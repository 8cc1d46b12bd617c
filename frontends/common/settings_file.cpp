#include "frontends/common/settings_file.h"
#include "support/text/utf8.h"

#include <fstream>
#include <string_view>


namespace vmgv {
namespace {

constexpr std::size_t kLargestFile = 1 << 20;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string lower(std::string_view text) {
  std::string result(text);
  for (char& c : result) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
  }
  return result;
}

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace

SettingsFile SettingsFile::readFirst(const std::vector<std::filesystem::path>& files) {
  SettingsFile settings;
  for (const std::filesystem::path& file : files) {
    std::error_code failed;
    if (!std::filesystem::exists(file, failed)) continue;
    settings.read(file);
    break;
  }
  return settings;
}

std::string SettingsFile::value(const std::string& key, const std::string& name,
                                const std::string& defaultValue) const {
  const auto found = values_.find({lower(key), lower(name)});
  return found == values_.end() ? defaultValue : found->second;
}

void SettingsFile::set(const std::string& key, const std::string& name, std::string value) {
  values_[{lower(key), lower(name)}] = std::move(value);
}

void SettingsFile::read(const std::filesystem::path& file) {
  const std::string name = file.string();
  std::error_code failed;
  if (!std::filesystem::is_regular_file(file, failed)) {
    messages_.push_back(name + ": not a file");
    return;
  }
  std::ifstream stream(file, std::ios::binary);
  std::string text(kLargestFile + 1, '\0');
  stream.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(stream.gcount()));
  if (stream.bad() || (!stream.eof() && text.empty())) {
    messages_.push_back(name + ": cannot be read");
  } else if (text.size() > kLargestFile) {
    messages_.push_back(name + ": larger than 1 MB");
  } else {
    readText(name, text);
  }
}

void SettingsFile::readText(const std::string& fileName, const std::string& text) {
  std::string_view rest = text;
  if (rest.starts_with(kByteOrderMark)) rest.remove_prefix(kByteOrderMark.size());
  std::string key;
  for (int number = 1; !rest.empty(); ++number) {
    const std::size_t end = rest.find('\n');
    const std::string_view line = trimmed(rest.substr(0, end));
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    const auto complain = [&](const char* reason) {
      messages_.push_back(fileName + ":" + std::to_string(number) + ": " + reason);
    };
    if (line.empty() || line[0] == '#' || line[0] == ';') continue;
    const std::size_t equals = line.find('=');
    if (line.find('\0') != std::string_view::npos || !isUtf8(line)) {
      complain("not UTF-8 text");
    } else if (line[0] == '[' && line.back() == ']') {
      key = trimmed(line.substr(1, line.size() - 2));
    } else if (line[0] == '[') {
      key.clear();  // what follows belongs to no key that is known
      complain("expected [key]");
    } else if (equals == std::string_view::npos || trimmed(line.substr(0, equals)).empty()) {
      complain("expected [key] or name = value");
    } else if (key.empty()) {
      complain("a value outside any [key]");
    } else {
      set(key, std::string(trimmed(line.substr(0, equals))), std::string(trimmed(line.substr(equals + 1))));
    }
  }
}

}  // namespace vmgv

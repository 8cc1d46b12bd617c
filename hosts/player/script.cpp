#include "hosts/player/script.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <string_view>

#include "hosts/player/paths.h"
#include "support/text/utf8.h"

namespace vmgv {
namespace {

constexpr std::size_t kLargestScript = 1 << 20;
constexpr std::size_t kLongestLine = 10'000;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string contents(const std::filesystem::path& file) {
  const auto fail = [&file](const std::string& reason) {
    return ScriptError(pathText(file) + ": " + reason);
  };
  std::error_code unknown;
  if (std::filesystem::is_directory(file, unknown)) throw fail("a script was expected, this is a folder");
  errno = 0;
  std::ifstream stream(file, std::ios::binary);
  if (!stream) throw fail(std::string("the script cannot be opened: ") + std::strerror(errno));
  std::string text(kLargestScript + 1, '\0');
  stream.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(stream.gcount()));
  if (stream.bad()) throw fail("the script cannot be read");
  if (text.size() > kLargestScript) throw fail("the script is larger than 1 MB");
  return text;
}

bool isBlank(char c) { return c == ' ' || c == '\t'; }

// Takes a quoted word off `rest`, which begins with its quote.
std::string takeQuoted(std::string_view& rest) {
  std::string text;
  for (std::size_t i = 1; i < rest.size(); ++i) {
    if (rest[i] == '"') {
      rest.remove_prefix(i + 1);
      if (!rest.empty() && !isBlank(rest[0]))
        throw ScriptError("a blank was expected behind a closing quote");
      return text;
    }
    if (rest[i] != '\\') {
      text += rest[i];
      continue;
    }
    const char escaped = ++i < rest.size() ? rest[i] : '\0';
    if (escaped != '"' && escaped != '\\' && escaped != 'n') {
      throw ScriptError(R"(\", \\ or \n was expected behind a backslash)");
    }
    text += escaped == 'n' ? '\n' : escaped;
  }
  throw ScriptError("a closing quote is missing");
}

std::string takePlain(std::string_view& rest) {
  std::size_t end = 0;
  while (end < rest.size() && !isBlank(rest[end])) {
    if (rest[end] == '"') throw ScriptError("a quote stands inside a word");
    ++end;
  }
  std::string text(rest.substr(0, end));
  rest.remove_prefix(end);
  return text;
}

std::vector<Word> split(std::string_view rest) {
  if (rest.size() > kLongestLine) {
    throw ScriptError("the line is longer than " + std::to_string(kLongestLine) + " bytes");
  }
  if (rest.find('\0') != std::string_view::npos) throw ScriptError("the line holds a NUL byte");
  if (!isUtf8(rest)) throw ScriptError("the line is not UTF-8");
  std::vector<Word> words;
  while (true) {
    while (!rest.empty() && isBlank(rest[0])) rest.remove_prefix(1);
    if (rest.empty() || rest[0] == '#') return words;
    const bool quoted = rest[0] == '"';
    words.push_back({quoted ? takeQuoted(rest) : takePlain(rest), quoted});
  }
}

}  // namespace

std::vector<ScriptLine> readScript(const std::filesystem::path& file) {
  const std::string text = contents(file);
  std::string_view rest = text;
  if (rest.starts_with(kByteOrderMark)) rest.remove_prefix(kByteOrderMark.size());
  std::vector<ScriptLine> lines;
  for (int number = 1; !rest.empty(); ++number) {
    const std::size_t end = rest.find('\n');
    std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    try {
      std::vector<Word> words = split(line);
      if (!words.empty()) lines.push_back({number, std::move(words)});
    } catch (const ScriptError& error) {
      throw ScriptError(pathText(file) + ":" + std::to_string(number) + ": " + error.what());
    }
  }
  return lines;
}

}  // namespace vmgv

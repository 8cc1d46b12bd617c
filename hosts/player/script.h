// A script file cut into lines of words.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace vmgv {

struct Word {
  std::string text;
  bool quoted = false;  // a quoted word is always text, never a number or a key word
};

struct ScriptLine {
  int number = 0;           // in the file, from 1
  std::vector<Word> words;  // never empty
};

// what() is "SCRIPT:LINE: reason", or "SCRIPT: reason" for the file as a whole.
class ScriptError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The lines that hold words. Throws ScriptError.
std::vector<ScriptLine> readScript(const std::filesystem::path& file);

}  // namespace vmgv

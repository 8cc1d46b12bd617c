// Scripts as bad input.
#include "hosts/player/script.h"

#include "tests/player/stage.h"

namespace vmgv {
namespace {

using ScriptTest = PlayerTest;

TEST_F(ScriptTest, SplitsLinesIntoWords) {
  struct {
    const char* text;
    std::vector<std::string> words;
  } const cases[]{
      {"click cmdOK", {"click", "cmdOK"}},
      {"\xEF\xBB\xBF \t click\t cmdOK  # why\r\n", {"click", "cmdOK"}},
      {R"(enter x "a \"b\" \\ c\nd")", {"enter", "x", "a \"b\" \\ c\nd"}},
      {R"(enter x "" "#")", {"enter", "x", "", "#"}},
      {"a#b C:\\x", {"a#b", "C:\\x"}},
      {"επιλογή \"δύο λέξεις\"", {"επιλογή", "δύο λέξεις"}},
      {"# only a comment", {}},
      {"", {}},
  };
  for (const auto& c : cases) {
    std::ofstream(folder_ / "s", std::ios::binary) << c.text;
    std::vector<std::string> words;
    for (const ScriptLine& line : readScript(folder_ / "s")) {
      for (const Word& word : line.words) words.push_back(word.text);
    }
    EXPECT_EQ(words, c.words) << c.text;
  }
}

TEST_F(ScriptTest, IsRefusedBeforeItBegins) {
  struct {
    std::string text;
    const char* error;
  } const cases[]{
      {"\nclick \"cmdOK\n", ":2: a closing quote is missing\n"},
      {"enter x \"a\\q\"", ":1: \\\", \\\\ or \\n was expected behind a backslash\n"},
      {"enter x \"a\\", ":1: \\\", \\\\ or \\n was expected behind a backslash\n"},
      {"enter x \"a\"b", ":1: a blank was expected behind a closing quote\n"},
      {"enter x a\"b\"", ":1: a quote stands inside a word\n"},
      {std::string("call a\0b", 8), ":1: the line holds a NUL byte\n"},
      {"call \xC3(", ":1: the line is not UTF-8\n"},
      {"call " + std::string(10'000, 'x'), ":1: the line is longer than 10000 bytes\n"},
      {std::string(10 << 20, 'x'), ": the script is larger than 1 MB\n"},
      {"clik cmdOK", ":1: expected a command, found \"clik\"; near: click\n"},
      {"door", ":1: expected a command, found \"door\"\n"},
      {"\"\"", ":1: expected a command, found \"\"\n"},
      {"choose cboSort(0)", ":1: expected choose CONTROL ENTRY, found 1 word behind choose\n"},
      {"close all the rest", ":1: expected close, found 3 words behind close\n"},
      {"call Echo 1\nclose 1", ":2: expected close, found 1 word behind close\n"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(play(c.text), 1);
    EXPECT_EQ(error_, c.error);
    EXPECT_EQ(events_, "") << "nothing is carried out of a bad script";
  }
  EXPECT_EQ(playFile(folder_ / "missing.vgs"), 1);
  EXPECT_EQ(error_, ": the script cannot be opened: No such file or directory\n");
  EXPECT_EQ(playFile(folder_), 1);
  EXPECT_EQ(error_, ": a script was expected, this is a folder\n");
}

TEST_F(ScriptTest, AnEmptyScriptDoesNothing) {
  EXPECT_EQ(play(""), 0);
  EXPECT_EQ(play("\n# nothing\n\r\n"), 0);
}

}  // namespace
}  // namespace vmgv

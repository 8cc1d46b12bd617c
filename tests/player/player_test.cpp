// What scripts do, and what they say where they cannot.
#include "hosts/player/script.h"
#include "tests/player/stage.h"

namespace vmgv {
namespace {

TEST_F(PlayerTest, SplitsLinesIntoWords) {
  struct {
    const char* text;
    std::vector<std::string> words;
  } const cases[]{
      {"\xEF\xBB\xBF \t click\t cmdOK  # why\r\n\n# a comment\n", {"click", "cmdOK"}},
      {R"(enter x "a \"b\" \\ c\nd")", {"enter", "x", "a \"b\" \\ c\nd"}},
      {R"(enter x "" "#")", {"enter", "x", "", "#"}},
      {"επιλογή \"δύο λέξεις\"", {"επιλογή", "δύο λέξεις"}},
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

TEST_F(PlayerTest, ABadScriptIsRefusedBeforeItBegins) {
  firstLine_ = "call Echo 1\n";
  playAll({
      {"\nclick \"cmdOK\n", ":3: a closing quote is missing\n"},
      {"enter x \"a\\", ":2: \\\", \\\\ or \\n was expected behind a backslash\n"},
      {"enter x \"a\"b", ":2: a blank was expected behind a closing quote\n"},
      {"enter x a\"b\"", ":2: a quote stands inside a word\n"},
      {std::string("call a\0b", 8), ":2: the line holds a NUL byte\n"},
      {"call \xC3(", ":2: the line is not UTF-8\n"},
      {"call " + std::string(10'000, 'x'), ":2: the line is longer than 10000 bytes\n"},
      {std::string(10 << 20, 'x'), ": the script is larger than 1 MB\n"},
      {"clik cmdOK", ":2: expected a command, found \"clik\"; near: click\n"},
      {"\"\"", ":2: expected a command, found \"\"\n"},
      {"choose cboSort(0)", ":2: expected choose CONTROL ENTRY, found 1 word behind choose\n"},
  });
  EXPECT_THROW(readScript(folder_), ScriptError);
}

TEST_F(PlayerTest, AtTheHost) {
  playAll({
      {"", ""},
      {"call Echo 1 2.5 true NULL text \"7\"", "", "Long, Double, Boolean, Null, String, String"},
      {"set excelVisible False\ngrid PreviewColumn 3\nselect 1 3\nwait", "", "row 1, row 3"},
      {"call Nothing", ":1: error 438: Thing lacks Nothing\n"},
      {"select 4", ":1: expected a row from 1 to 3, found 4\n"},
      {"rows a.tsv 2 4", ":1: expected rows within 1 to 3, found 2 to 4\n"},
      {"picture a.png", ":1: error 5: there is no screen; pictures need another --frontend\n"},
      {"wait\nclick cmdOK\ncall Echo y", ":2: expected a dialog, found nothing open\n"},
      {"expect message x", ":1: expected a dialog or box, found nothing open\n"},
  });
  EXPECT_EQ(stage_.control.get("excelVisible"), Value(false));
  EXPECT_EQ(stage_.grid.get("PreviewColumn"), Value(3));
}

TEST_F(PlayerTest, AtADialog) {
  firstLine_ = "call ShowPlain\n";
  playAll({
      {"choose CBOSORT(0) origin_state\nclick cmdok", "", "ok 1"},
      {"choose cboSort(0) \"2\"\nclick cmdOK\ncall Echo 1", "", "ok 2, Long"},
      {"enter txtName \"a \\\"b\\\"\"\nexpect TXTNAME.Text \"a \\\"b\\\"\"\nresize 300 200\nclose", ""},
      {"press txtName a\npress txtName Shift+B\nexpect txtName.text aB\npress txtName esc", ""},
      {"focus cmdOK\nexpect form.NAME frmPlain\nuntil cmdOK.enabled True\nclose", ""},

      {"click cmdOk2", ":2: frmPlain has no control cmdOk2; near: cmdOK\n"},
      {"click cmdGrey", ":2: cmdGrey is disabled\n"},
      {"choose cboSort(0) x", ":2: cboSort(0) has no entry \"x\" among its 3\n"},
      {"press cmdOK F99", ":2: expected a key such as Enter, Esc, Down or Ctrl+A, found \"F99\"\n"},
      {"expect cmdGrey.enabled false", ":2: expected cmdGrey.enabled \"false\", found \"False\"\n"},
      {"expect txtName.x 1", ":2: txtName has no property x; it has caption, enabled, visible, text\n"},
      {"expect txtName x", ":2: expected CONTROL.PROPERTY, found \"txtName\"\n"},
      {"expect message x", ":2: expected the message \"x\", found dialog frmPlain\n"},
      {"edit value1 x", ":2: frmPlain has no property row value1\n"},
      {"answer x", ":2: expected a box, found dialog frmPlain\n"},
      {"colour 00FF00", ":2: expected a box, found dialog frmPlain\n"},
      {"until txtName.text x\nclick cmdOK", ":2: expected txtName.text \"x\", found \"\"\n"},
      {"layout a.json", ":2: expected nothing open, found dialog frmPlain\n"},
      {"focus cmdOK\n\n", ":2: expected nothing open at the end, found dialog frmPlain\n"},
  });
  firstLine_ = "call ShowStubborn\n";
  playAll({
      {"close", ":2: expected nothing open at the end, found the message \"No.\"\n"},
      {"click x", ":2: frmStubborn has no control x\n"},
  });
}

TEST_F(PlayerTest, AtABox) {
  std::ofstream(folder_ / "here.xls") << "x";
  std::ofstream(out_ / "below.xls") << "x";
  const std::string given = (folder_ / "here.xls").string();
  const std::string below = (out_ / "below.xls").string();
  firstLine_ = "call ShowPlain\n";
  playAll({
      {"click cmdMessage\nexpect message \"All\\ndone.\"\nanswer ok\nclose", ""},
      {"click cmdAsk\nanswer YES\nclick cmdOK", "", "yes, ok -1"},
      {"click cmdOpen\npick " + given + "\nexpect txtName.text " + given + "\nclose", ""},
      {"click cmdOpen\npick below.xls\nexpect txtName.text " + below + "\nclose", ""},

      {"click cmdAsk\nanswer ok", ":3: the message has Yes and No only\n", "no"},
      {"click cmdMessage\nclick cmdOK", ":3: expected a dialog, found the message \"All\\ndone.\"\n"},
      {"click cmdOpen\npick \"cancel\"", ":3: there is no file cancel\n"},
      {"click cmdAsk", ":2: expected nothing open at the end, found the message \"Sure?\"\n", "no"},
  });
}

TEST_F(PlayerTest, DuringALongOperation) {
  firstLine_ = "call ShowWork\nclick cmdOK\n";
  playAll({
      {"", "", "worked to 100"},
      {"until PRBAR.VALUE 50\nexpect prbar.value 50\nclose", "", "worked to 50"},
      {"until prbar.value 7\npress cmdCancel Space", "", "worked to 7"},
      // Lines that do not fit the dialog at work wait for the end.
      {"click cmdOK", ":3: expected a dialog, found nothing open\n", "worked to 100"},
      {"call Echo 1", "", "worked to 100, Long"},
      {"until prbar.value 500", ":3: expected a dialog, found nothing open\n", "worked to 100"},
      // A failure ends the operation as the title bar would.
      {"until prbar.value 50\nexpect prbar.value 51", ":4: expected prbar.value \"51\", found \"50\"\n",
       "worked to 50"},
  });
  firstLine_ = "call ShowPlain\nclick cmdWork\nclick cmdOK\n";
  playAll({
      {"until prbar.value 50\nclick cmdCancel\nclick cmdOK", "", "worked to 50, ok -1"},
      {"until prbar.value 500\nclick cmdOK", ":4: frmPlain has no control prbar\n", "worked to 100"},
  });
}

TEST_F(PlayerTest, WritesBelowTheOutputFolderOnly) {
  for (const std::string name : {"../x", "a/../../x", "/tmp/x", "", "a/", "."}) {
    const std::string quoted = '"' + name + '"';
    playAll({{"rows " + quoted, ":1: expected a file name below the output folder, found " + quoted + "\n"}});
  }
  EXPECT_EQ(play("output ../x.xlsx"), 1);
  EXPECT_EQ(workbook_, out_ / "export.xlsx");
  EXPECT_EQ(play("output books/my.xlsx"), 0);
  EXPECT_EQ(workbook_, out_ / "books" / "my.xlsx");
  EXPECT_TRUE(std::filesystem::is_directory(out_ / "books")) << "the export need not create folders";
  std::filesystem::remove_all(out_);
  EXPECT_EQ(play("call Echo 1"), 0);
  EXPECT_TRUE(std::filesystem::is_directory(out_)) << "nor this one";

  EXPECT_EQ(play("output books/my.xlsx"), 0);
  playAll({{"print books/report.pdf", "", "print report.pdf"}});
  playAll({{"rows books", ":1: " + (out_ / "books").string() + " is a folder\n"}});
  EXPECT_EQ(play("rows half.tsv"), 1) << "this grid has no rows to read";
  EXPECT_FALSE(std::filesystem::exists(out_ / "half.tsv"));
  EXPECT_FALSE(std::filesystem::exists(out_ / "half.tsv.part"));
}

}  // namespace
}  // namespace vmgv

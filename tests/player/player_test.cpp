// What scripts do, and what they say where they cannot.
#include "tests/player/stage.h"

namespace vmgv {
namespace {

struct Case {
  const char* script;
  const char* error;  // empty: the script succeeds
  const char* events = "";
};

class ScriptedPlay : public PlayerTest {
 protected:
  void playAll(std::initializer_list<Case> cases) {
    for (const Case& c : cases) {
      events_.clear();
      const int result = play(c.script);
      EXPECT_EQ(error_, c.error) << c.script;
      EXPECT_EQ(result, *c.error ? 1 : 0) << c.script;
      EXPECT_EQ(events_, c.events) << c.script;
    }
  }
};

TEST_F(ScriptedPlay, AtTheHost) {
  playAll({
      {"call Echo 1 70000 2.5 true NULL text \"7\" \"True\"", "",
       "Long, Long, Double, Boolean, Null, String, String, String"},
      {"set excelVisible False", ""},
      {"grid PreviewColumn 3", ""},
      {"select 1 3", "", "row 1, row 3"},
      {"select", ""},
      {"wait", ""},
      {"call Nothing", ":1: error 438: Thing lacks Nothing\n"},
      {"set Nothing 1", ":1: error 438: Thing lacks Nothing\n"},
      {"grid Nothing 1", ":1: error 438: Thing lacks Nothing\n"},
      {"call Fail", ":1: error 13: Type mismatch\n"},
      {"select 4", ":1: expected a row from 1 to 3, found 4\n"},
      {"select 0", ":1: expected a row from 1 to 3, found 0\n"},
      {"select x", ":1: expected a row, found \"x\"\n"},
      {"select 99999999999", ":1: expected a row, found \"99999999999\"\n"},
      {"rows a.tsv 1", ":1: expected FIRST and LAST, found FIRST alone\n"},
      {"rows a.tsv 2 4", ":1: expected rows within 1 to 3, found 2 to 4\n"},
      {"rows a.tsv 2 1", ":1: expected rows within 1 to 3, found 2 to 1\n"},
      {"rows a.tsv 1 \"2\"", ":1: expected the last row, found \"2\"\n"},
      {"picture a.png", ":1: error 5: there is no screen; pictures need --frontend qt\n"},
      {"call Echo x\nclick cmdOK\ncall Echo y", ":2: expected a dialog, found nothing open\n", "String"},
      {"answer ok", ":1: expected a box, found nothing open\n"},
      {"expect message x", ":1: expected a dialog or box, found nothing open\n"},
  });
}

TEST_F(ScriptedPlay, AtADialog) {
  playAll({
      {"call ShowPlain\nchoose CBOSORT(0) origin_state\nclick cmdok", "", "ok 1"},
      {"call ShowPlain\nchoose cboSort(0) 2\npress txtName Enter", "", "ok 2"},
      {"call ShowPlain\nchoose cboSort(0) \"2\"\nclick cmdOK\ncall Echo 1", "", "ok 2, Long"},
      {"call ShowPlain\nenter txtName \"a \\\"b\\\"\"\nexpect TXTNAME.Text \"a \\\"b\\\"\"\nclose", ""},
      {"call ShowPlain\npress txtName a\npress txtName Shift+B\nexpect txtName.text aB\npress txtName esc",
       ""},
      {"call ShowPlain\nexpect form.caption Plain\nexpect form.NAME frmPlain\nresize 300 200\nclose", ""},
      {"call ShowPlain\nfocus cmdOK\nexpect cmdGrey.enabled False\nuntil cmdOK.enabled True\nclose", ""},

      {"call ShowPlain\nclick cmdOk2", ":2: frmPlain has no control cmdOk2; near: cmdOK\n"},
      {"call ShowPlain\nclick cmdGrey", ":2: cmdGrey is disabled\n"},
      {"call ShowPlain\nchoose cboSort(0) 3", ":2: cboSort(0) has 3 entries, none at 3\n"},
      {"call ShowPlain\nchoose cboSort(0) x", ":2: cboSort(0) has no entry \"x\" among its 3\n"},
      {"call ShowPlain\nchoose txtName 1", ":2: txtName is no list\n"},
      {"call ShowPlain\npress txtName F99",
       ":2: expected a key such as Enter, Esc, Down or Ctrl+A, found \"F99\"\n"},
      {"call ShowPlain\npress txtName Ctrl+Ctrl+A",
       ":2: expected a key such as Enter, Esc, Down or Ctrl+A, found \"Ctrl+Ctrl+A\"\n"},
      {"call ShowPlain\nexpect txtName.text x", ":2: expected txtName.text \"x\", found \"\"\n"},
      {"call ShowPlain\nexpect cmdGrey.enabled false",
       ":2: expected cmdGrey.enabled \"false\", found \"False\"\n"},
      {"call ShowPlain\nexpect txtName.txt x",
       ":2: txtName has no property txt; it has caption, enabled, visible, text\n"},
      {"call ShowPlain\nexpect txtName x", ":2: expected CONTROL.PROPERTY, found \"txtName\"\n"},
      {"call ShowPlain\nexpect message x", ":2: expected the message \"x\", found dialog frmPlain\n"},
      {"call ShowPlain\nuntil txtName.text x\nclick cmdOK", ":2: expected txtName.text \"x\", found \"\"\n"},
      {"call ShowPlain\nlayout a.json", ":2: expected nothing open, found dialog frmPlain\n"},
      {"call ShowPlain\nanswer ok", ":2: expected a box, found dialog frmPlain\n"},
      {"call ShowPlain\nresize 0 5", ":2: a window has a width and a height\n"},
      {"call ShowPlain\nresize wide 5", ":2: expected a width in twips, found \"wide\"\n"},
      {"call ShowPlain\nfocus cmdOK\n\n", ":2: expected nothing open at the end, found dialog frmPlain\n"},
      {"call ShowStubborn\nclose", ":2: expected nothing open at the end, found the message \"No.\"\n"},
      {"call ShowStubborn\nclick x", ":2: frmStubborn has no control x\n"},
  });
}

TEST_F(ScriptedPlay, AtABox) {
  std::ofstream(folder_ / "here.xls") << "x";
  std::filesystem::create_directories(out_);
  std::ofstream(out_ / "below.xls") << "x";
  const std::string given = (folder_ / "here.xls").string();
  const std::string below = (out_ / "below.xls").string();
  const std::string pickGiven =
      "call ShowPlain\nclick cmdOpen\npick " + given + "\nexpect txtName.text " + given + "\nclose";
  const std::string pickBelow =
      "call ShowPlain\nclick cmdOpen\npick below.xls\nexpect txtName.text " + below + "\nclose";
  playAll({
      {"call ShowPlain\nclick cmdMessage\nexpect message \"All\\ndone.\"\nanswer ok\nclose", ""},
      {"call ShowPlain\nclick cmdAsk\nanswer YES\nclick cmdOK", "", "yes, ok -1"},
      {"call ShowPlain\nclick cmdAsk\nanswer no\nclose", "", "no"},
      {pickGiven.c_str(), ""},
      {pickBelow.c_str(), ""},
      {"call ShowPlain\nclick cmdOpen\npick cancel\nexpect txtName.text \"\"\nclose", ""},

      {"call ShowPlain\nclick cmdAsk\nanswer ok", ":3: the message has Yes and No only\n", "no"},
      {"call ShowPlain\nclick cmdAsk\nanswer maybe", ":3: expected yes, no, ok or cancel, found \"maybe\"\n",
       "no"},
      {"call ShowPlain\nclick cmdMessage\nexpect message done",
       ":3: expected the message \"done\", found the "
       "message \"All\\ndone.\"\n"},
      {"call ShowPlain\nclick cmdMessage\nclick cmdOK",
       ":3: expected a dialog, found the message \"All\\ndone.\"\n"},
      {"call ShowPlain\nclick cmdOpen\nanswer ok", ":3: no message is on top\n"},
      {"call ShowPlain\nclick cmdOpen\npick \"cancel\"", ":3: there is no file cancel\n"},
      {"call ShowPlain\nclick cmdAsk", ":2: expected nothing open at the end, found the message \"Sure?\"\n",
       "no"},
  });
}

TEST_F(ScriptedPlay, DuringALongOperation) {
  playAll({
      {"call ShowWork\nclick cmdOK", "", "worked to 100"},
      {"call ShowWork\nclick cmdOK\nuntil prbar.value 50\nclick cmdCancel", "", "worked to 50"},
      {"call ShowWork\nclick cmdOK\nuntil PRBAR.VALUE 50\nexpect Label1.caption \"row 50\"\nclose", "",
       "worked to 50"},
      {"call ShowWork\nclick cmdOK\nuntil Label1.caption \"row 7\"\npress cmdCancel Space", "",
       "worked to 7"},
      {"call ShowPlain\nclick cmdWork\nclick cmdOK\nuntil prbar.value 50\nclick cmdCancel\nclick cmdOK", "",
       "worked to 50, ok -1"},
      // Lines that do not fit the dialog at work wait for the end.
      {"call ShowWork\nclick cmdOK\nclick cmdOK", ":3: expected a dialog, found nothing open\n",
       "worked to 100"},
      {"call ShowWork\nclick cmdOK\ncall Echo 1", "", "worked to 100, Long"},
      {"call ShowPlain\nclick cmdWork\nclick cmdOK\nwait\nclick cmdCancel", "", "worked to 100"},
      {"call ShowPlain\nclick cmdWork\nclick cmdOK\nenter txtName x\nclose", "", "worked to 100"},

      {"call ShowWork\nclick cmdOK\nuntil prbar.value 500", ":3: expected a dialog, found nothing open\n",
       "worked to 100"},
      {"call ShowPlain\nclick cmdWork\nclick cmdOK\nuntil prbar.value 500\nclick cmdOK",
       ":4: frmPlain has no control prbar\n", "worked to 100"},
      // A failure ends the operation as the title bar would.
      {"call ShowWork\nclick cmdOK\nuntil prbar.value 50\nexpect prbar.value 51",
       ":4: expected prbar.value \"51\", found \"50\"\n", "worked to 50"},
  });
}

TEST_F(ScriptedPlay, WritesBelowTheOutputFolderOnly) {
  playAll({
      {"output ../x.xlsx", ":1: expected a file name below the output folder, found \"../x.xlsx\"\n"},
      {"layout a/../../x", ":1: expected a file name below the output folder, found \"a/../../x\"\n"},
      {"rows /tmp/x", ":1: expected a file name below the output folder, found \"/tmp/x\"\n"},
      {"rows \"\"", ":1: expected a file name below the output folder, found \"\"\n"},
      {"rows a/", ":1: expected a file name below the output folder, found \"a/\"\n"},
      {"rows .", ":1: expected a file name below the output folder, found \".\"\n"},
  });
  EXPECT_EQ(workbook_, out_ / "export.xlsx");
  EXPECT_EQ(play("output books/my.xlsx"), 0);
  EXPECT_EQ(workbook_, out_ / "books" / "my.xlsx");
  EXPECT_TRUE(std::filesystem::is_directory(out_ / "books")) << "the export need not create folders";

  EXPECT_EQ(play("rows books"), 1);
  EXPECT_EQ(error_, ":1: " + (out_ / "books").string() + " is a folder\n");
  EXPECT_EQ(play("rows half.tsv"), 1) << "this grid has no rows to read";
  EXPECT_FALSE(std::filesystem::exists(out_ / "half.tsv"));
  EXPECT_FALSE(std::filesystem::exists(out_ / "half.tsv.part"));
}

TEST_F(ScriptedPlay, WritesTheFormAsItIs) {
  EXPECT_EQ(play("call ShowPlain\nenter txtName Ω\nform forms/plain.json\nclose"), 0) << error_;
  const std::string json = read(out_ / "forms" / "plain.json");
  EXPECT_NE(json.find("\"name\": \"frmPlain\""), std::string::npos);
  EXPECT_NE(json.find("\"text\": \"Ω\""), std::string::npos);
}

}  // namespace
}  // namespace vmgv

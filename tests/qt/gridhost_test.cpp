// gridhost from outside: bad arguments, bad data, scripts on both front ends.
#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace {

struct GridhostTest : testing::Test {
  // The exit code, or -1 after a crash.
  int run(const QStringList& arguments) {
    QProcess program;
    program.setWorkingDirectory(folder.path());
    program.start(qEnvironmentVariable("GRIDHOST"), arguments);
    EXPECT_TRUE(program.waitForFinished(60'000));
    errors = program.readAllStandardError().toStdString();
    return program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1;
  }
  QString write(const QString& name, const QByteArray& content) {
    QFile file(folder.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
    return file.fileName();
  }

  QTemporaryDir folder;
  std::string errors;
};

TEST_F(GridhostTest, SaysWhatIsWrong) {
  const QString empty = write("empty.csv", ""), script = write("empty.vgs", "");
  const QString ragged = write("ragged.csv", "a,b\n1,2\n3\n4,5,6\n");
  const struct {
    QStringList arguments;
    int status;
    const char* named;
  } cases[] = {
      {{"--bogus"}, 2, "--bogus"},
      {{"--language", "fr"}, 2, "\"fr\""},
      {{"--frontend", "headless"}, 2, "--play"},
      {{"--play", "none.vgs"}, 1, "none.vgs"},
      {{"--data", folder.path(), "--play", script}, 1, "directory"},
      {{"--data", empty, "--play", script}, 1, "empty.csv"},
      {{"--data", ragged, "--play", script}, 0, "ragged.csv:3:"},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(run(each.arguments), each.status) << each.named << "\n" << errors;
    EXPECT_NE(errors.find(each.named), std::string::npos) << each.named << "\n" << errors;
  }
}

TEST_F(GridhostTest, BothFrontEndsPlayTheSame) {
  const QString script = write("play.vgs",
                               "call ShowSort\n"
                               "choose cboSort(0) aircraft\n"
                               "click optOrder1(1)\n"
                               "press cmdOK Enter\n"
                               "rows rows.tsv 1 500\n");
  QByteArrayList rows;
  for (const char* frontEnd : {"qt", "headless"}) {
    ASSERT_EQ(run({"--frontend", frontEnd, "--play", script, "--out", "."}), 0) << errors;
    QFile file(folder.filePath("rows.tsv"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    rows << file.readAll();
    file.remove();
  }
  EXPECT_EQ(rows[0], rows[1]);
  EXPECT_EQ(rows[0].count('\n'), 500);
}

}  // namespace

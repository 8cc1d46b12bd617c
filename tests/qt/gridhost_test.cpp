// gridhost from outside: bad arguments, bad data, scripts on both front ends.
#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace {

class GridhostTest : public testing::Test {
 protected:
  struct Outcome {
    int status;
    QString output, errors;
  };
  Outcome run(const QStringList& arguments) {
    QProcess program;
    program.setWorkingDirectory(folder.path());
    program.start(qEnvironmentVariable("GRIDHOST"), arguments);
    EXPECT_TRUE(program.waitForFinished(60'000));
    return {program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1,
            QString::fromUtf8(program.readAllStandardOutput()),
            QString::fromUtf8(program.readAllStandardError())};
  }
  QString write(const QString& name, const QByteArray& content) {
    QFile file(folder.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
    return file.fileName();
  }

  QTemporaryDir folder;
};

TEST_F(GridhostTest, SaysWhatIsWrong) {
  const QString empty = write("empty.csv", ""), script = write("empty.vgs", "");
  const struct {
    QStringList arguments;
    int status;
    const char* named;
  } cases[] = {
      {{"--bogus"}, 2, "--bogus"},
      {{"--language", "fr"}, 2, "\"fr\""},
      {{"--frontend", "headless"}, 2, "--play"},
      {{"--out"}, 2, "--out needs a value"},
      {{"--play", "none.vgs"}, 1, "none.vgs"},
      {{"--data", "none.csv", "--play", script}, 1, "none.csv"},
      {{"--data", folder.path(), "--play", script}, 1, "directory"},
      {{"--data", empty, "--play", script}, 1, "empty.csv"},
  };
  for (const auto& each : cases) {
    const Outcome outcome = run(each.arguments);
    EXPECT_EQ(outcome.status, each.status) << each.arguments.join(' ').toStdString();
    EXPECT_TRUE(outcome.errors.contains(QLatin1String(each.named))) << outcome.errors.toStdString();
  }
}

TEST_F(GridhostTest, GoesOnWithARaggedTable) {
  const QString data = write("ragged.csv", "a,b\n1,2\n3\n4,5,6\n");
  const QString script = write("rows.vgs", "rows rows.tsv\n");
  const Outcome outcome = run({"--data", data, "--play", script, "--out", "."});
  EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
  EXPECT_TRUE(outcome.errors.contains("ragged.csv:3:"));
  EXPECT_TRUE(outcome.errors.contains("ragged.csv:4:"));
  EXPECT_TRUE(QFile::exists(folder.filePath("rows.tsv")));
}

TEST_F(GridhostTest, BothFrontEndsPlayTheSame) {
  const QString script = write("play.vgs",
                               "call ShowSort\n"
                               "choose cboSort(0) aircraft\n"
                               "choose cboSort(1) id\n"
                               "click optOrder1(1)\n"
                               "press cmdOK Enter\n"
                               "rows rows.tsv 1 500\n"
                               "layout layout.json\n");
  QByteArrayList rows, layouts;
  for (const char* frontEnd : {"qt", "headless"}) {
    const QString out = folder.filePath(QLatin1String(frontEnd));
    const Outcome outcome = run({"--language", "en", "--frontend", frontEnd, "--play", script, "--out", out});
    ASSERT_EQ(outcome.status, 0) << outcome.errors.toStdString();
    for (const auto& [list, name] : {std::pair{&rows, "/rows.tsv"}, std::pair{&layouts, "/layout.json"}}) {
      QFile file(out + QLatin1String(name));
      ASSERT_TRUE(file.open(QIODevice::ReadOnly));
      list->append(file.readAll());
    }
  }
  EXPECT_EQ(rows[0], rows[1]);
  EXPECT_EQ(layouts[0], layouts[1]);
  EXPECT_EQ(rows[0].count('\n'), 500);
}

}  // namespace

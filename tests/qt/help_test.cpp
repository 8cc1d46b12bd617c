// Help pages in the browser.
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QUrl>

#include "support/strings/string_service.h"
#include "tests/qt/fixture.h"

namespace vmgv {

class Browser : public QObject {
  Q_OBJECT
 public:
  Browser() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open"); }
  ~Browser() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }
  QStringList opened;
  Q_INVOKABLE void open(const QUrl& url) { opened << url.toLocalFile(); }
};

TEST_F(QtTest, HelpOpensInTheLanguageOfTheProcessAndAMissingPageIsNamed) {
  Browser browser;
  QTemporaryDir folder;
  const QString page = folder.filePath(QStringLiteral("en/index.htm"));
  QDir(folder.path()).mkpath(QStringLiteral("en"));
  ASSERT_TRUE(QFile(page).open(QIODevice::WriteOnly));
  const std::string helpFile = utf8(folder.filePath(QStringLiteral("VMgridViews.chm")));
  std::string message;
  Steps user(desktop, {[&] {
               message = desktop.box()->text;
               desktop.answer(MessageResult::Ok);
             }});
  processStringService().setLanguage(kEnglish);
  desktop.openHelp(nullptr, helpFile + ">main", HelpCommand::Contents, "");
  processStringService().setLanguage(kGreek);
  desktop.openHelp(nullptr, helpFile, HelpCommand::Topic, "index.htm");
  user.finish();
  EXPECT_EQ(browser.opened, QStringList{page});
  EXPECT_EQ(message, "Η σελίδα βοήθειας el/index.htm δεν υπάρχει στον φάκελο " + utf8(folder.path()) + ".");
}

}  // namespace vmgv

#include "help_test.moc"

// Help pages and settings.
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QUrl>

#include "support/automation/error.h"
#include "support/strings/string_service.h"
#include "tests/qt/fixture.h"

namespace vmgv {
namespace {

class Browser : public QObject {
  Q_OBJECT
 public:
  Browser() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open"); }
  ~Browser() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }
  QStringList opened;
 public slots:
  void open(const QUrl& url) { opened << url.toLocalFile(); }
};

class HelpTest : public QtTest {
 protected:
  HelpTest() {
    QDir(folder.path()).mkpath(QStringLiteral("en"));
    for (const char* page : {"en/gridViewsSorting.htm", "en/index.htm"}) {
      QFile file(folder.filePath(QLatin1String(page)));
      EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    }
    processStringService().setLanguage(kEnglish);
  }
  std::string helpFile() const { return utf8(folder.filePath(QStringLiteral("VMgridViews.chm"))); }

  QTemporaryDir folder;
  Browser browser;
};

TEST_F(HelpTest, OpensThePageInTheLanguageOfTheProcess) {
  desktop.openHelp(nullptr, helpFile(), HelpCommand::Topic, "gridViewsSorting.htm");
  desktop.openHelp(nullptr, helpFile() + ">main", HelpCommand::Contents, "");
  EXPECT_EQ(browser.opened, (QStringList{folder.filePath(QStringLiteral("en/gridViewsSorting.htm")),
                                         folder.filePath(QStringLiteral("en/index.htm"))}));
}

TEST_F(HelpTest, AMissingPageIsNamed) {
  processStringService().setLanguage(kGreek);
  std::string message;
  Steps user(desktop, {[&] {
               message = desktop.box()->text;
               desktop.answer(MessageResult::Ok);
             }});
  desktop.openHelp(nullptr, helpFile(), HelpCommand::Topic, "gridViewsSorting.htm");
  user.finish();
  EXPECT_TRUE(browser.opened.isEmpty());
  EXPECT_EQ(message,
            "Η σελίδα βοήθειας el/gridViewsSorting.htm δεν υπάρχει στον φάκελο " + utf8(folder.path()) + ".");
}

TEST_F(HelpTest, TheSystemTellsFontsAndMakesObjects) {
  EXPECT_EQ(desktop.pixelsPerInch(), 96);
  EXPECT_EQ(desktop.desktopFonts()->at(3).faceName, "DejaVu Sans");
  EXPECT_EQ(desktop.desktopFonts()->at(3).height, -12);
  EXPECT_THROW(desktop.createObject("Excel.Application"), Error);
  desktop.objectFactory = [](const std::string&) { return ObjectRef(); };
  EXPECT_THROW(desktop.createObject("Excel.Application"), Error);
}

}  // namespace
}  // namespace vmgv

#include "help_test.moc"

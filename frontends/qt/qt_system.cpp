#include "frontends/qt/qt_system.h"

#include <QApplication>
#include <QDate>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFontInfo>
#include <QLocale>
#include <QScreen>
#include <QStandardPaths>
#include <QUrl>
#include <cmath>

#include "frontends/qt/box_texts.h"
#include "frontends/qt/units.h"
#include "support/automation/error.h"

namespace vmgv {
namespace {

LogicalFont logicalFont(const QFont& font, int pixelsPerInch) {
  const QFontInfo real(font);
  LogicalFont logical;
  logical.faceName = utf8(real.family());
  logical.height = -static_cast<int>(std::lround(real.pointSizeF() * pixelsPerInch / kPointsPerInch));
  logical.weight = font.weight();
  logical.italic = font.italic();
  logical.underline = font.underline();
  logical.strikeOut = font.strikeOut();
  return logical;
}

}  // namespace

std::optional<DesktopFonts> QtSystem::desktopFonts() {
  const int scale = pixelsPerInch();
  const LogicalFont title = logicalFont(QFontDatabase::systemFont(QFontDatabase::TitleFont), scale);
  return DesktopFonts{title, title, logicalFont(QApplication::font("QMenu"), scale),
                      logicalFont(QApplication::font("QStatusBar"), scale),
                      logicalFont(QApplication::font("QMessageBox"), scale)};
}

std::int32_t QtSystem::pixelsPerInch() {
  return static_cast<std::int32_t>(std::lround(QGuiApplication::primaryScreen()->logicalDotsPerInchY()));
}

std::vector<std::string> QtSystem::screenFonts() {
  std::vector<std::string> names;
  for (const QString& family : QFontDatabase::families()) names.push_back(utf8(family));
  return names;
}

std::string QtSystem::mediumDate() {
  return utf8(QLocale::system().toString(QDate::currentDate(), QStringLiteral("dd-MMM-yy")));
}

std::string QtSystem::commonFilesFolder() {
  const QStringList folders = QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation);
  return utf8(folders.isEmpty() ? QString() : folders.last()) + pathSeparator();
}

bool QtSystem::fileExists(const std::string& path) { return QFileInfo(qt(path)).isFile(); }

std::intptr_t QtSystem::openHelp(Form*, const std::string& file, HelpCommand command,
                                 const std::string& topic) {
  const QString helpFile = qt(file.substr(0, file.find('>')));  // ">" begins the name of a help window
  const QString folder = QFileInfo(helpFile).path();
  const QString page =
      QStringLiteral("%1/%2").arg(QLatin1String(speaksGreek() ? "el" : "en"),
                                  command == HelpCommand::Contents ? QStringLiteral("index.htm") : qt(topic));
  const QFileInfo found(QDir(folder), page);
  // Asked first: the desktop says yes to any address.
  if (!found.isFile()) {
    tellUser(missingHelpText(page, folder));
  } else if (!QDesktopServices::openUrl(QUrl::fromLocalFile(found.absoluteFilePath()))) {
    tellUser(noBrowserText(found.absoluteFilePath()));
  }
  return 0;
}

ObjectRef QtSystem::createObject(const std::string& programId) {
  ObjectRef made = objectFactory ? objectFactory(programId) : nullptr;
  if (!made) throw Error(ErrorNumber::CannotCreateObject, "Cannot create an object of " + programId);
  return made;
}

}  // namespace vmgv

#include "frontends/qt/shared_desktop.h"

#include <QDesktopServices>
#include <QDir>
#include <QStandardPaths>
#include <QUrl>

#include "adapters/workbook/application.h"
#include "frontends/common/installation.h"
#include "frontends/qt/units.h"

namespace vmgv {
namespace {

QString namedFolder() { return qEnvironmentVariable("VMG_WORKBOOK_FOLDER"); }

}  // namespace

std::shared_ptr<SharedDesktop> SharedDesktop::get() {
  static std::weak_ptr<SharedDesktop> living;
  std::shared_ptr<SharedDesktop> shared = living.lock();
  if (!shared) living = shared = std::shared_ptr<SharedDesktop>(new SharedDesktop);
  return shared;
}

SharedDesktop::SharedDesktop() {
  SettingsFile settings = installedSettings();
  for (const std::string& message : settings.messages()) qWarning("%s", message.c_str());
  desktop.setSettings(std::move(settings));
  desktop.objectFactory = [this](const std::string& programId) {
    return programId == "Excel.Application" ? makeWorkbookApplication(*this) : ObjectRef();
  };
}

std::string SharedDesktop::targetPath() {
  QString folder = namedFolder();
  if (folder.isEmpty()) {
    folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    QDir().mkpath(folder);
  }
  return freshWorkbookPath(utf8(folder));
}

void SharedDesktop::finished(const std::string& path, std::int64_t) {
  if (namedFolder().isEmpty()) QDesktopServices::openUrl(QUrl::fromLocalFile(qt(path)));
}

}  // namespace vmgv

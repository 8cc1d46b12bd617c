// The system around a Qt application: its fonts, settings, help pages and the programs behind CreateObject.
#pragma once

#include <QString>
#include <functional>

#include "frontends/common/settings_file.h"
#include "support/forms/system_port.h"

namespace vmgv {

class QtSystem : public SystemPort {
 public:
  void setSettings(SettingsFile settings) { settings_ = std::move(settings); }
  // Makes the objects of programs; null stands for a program that is not installed.
  std::function<ObjectRef(const std::string& programId)> objectFactory;

  std::optional<DesktopFonts> desktopFonts() override;
  std::int32_t pixelsPerInch() override;
  std::vector<std::string> screenFonts() override;
  std::string setting(const std::string& key, const std::string& name,
                      const std::string& defaultValue) override {
    return settings_.value(key, name, defaultValue);
  }
  std::string mediumDate() override;
  std::string commonFilesFolder() override;
  char pathSeparator() const override { return '/'; }
  bool fileExists(const std::string& path) override;
  // The pages are HTML files in the folder of `file`, below "en" and "el"; the user's browser shows them, so
  // that there never is a handle.
  std::intptr_t openHelp(Form* owner, const std::string& file, HelpCommand command,
                         const std::string& topic) override;
  ObjectRef createObject(const std::string& programId) override;

 protected:
  virtual void tellUser(const QString& text) = 0;

 private:
  SettingsFile settings_;
};

}  // namespace vmgv

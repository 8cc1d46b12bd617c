// The system of a machine without a screen: what hosts and tests tell it to answer.
#pragma once

#include <functional>
#include <vector>

#include "frontends/common/settings_file.h"
#include "support/forms/system_port.h"

namespace vmgv {

struct HelpCall {  // what a dialog asked of help
  std::string file;
  HelpCommand command;
  std::string topic;
};

class HeadlessSystem : public SystemPort {
 public:
  // 100 for 96 pixels an inch. The desktop's fonts become 9 point DejaVu Sans at that scale.
  void setScale(int percent);
  // Nothing: the system cannot tell its fonts.
  void setDesktopFonts(std::optional<DesktopFonts> fonts) { fonts_ = std::move(fonts); }
  void setScreenFonts(std::vector<std::string> names) { screenFonts_ = std::move(names); }
  void setSettings(SettingsFile settings) { settings_ = std::move(settings); }
  void setMediumDate(std::string date) { mediumDate_ = std::move(date); }  // else today's
  void setCommonFilesFolder(std::string folder) { commonFilesFolder_ = std::move(folder); }
  // Makes the objects of programs; null stands for a program that is not installed.
  std::function<ObjectRef(const std::string& programId)> objectFactory;

  const std::vector<HelpCall>& helpCalls() const noexcept { return helpCalls_; }

  std::optional<DesktopFonts> desktopFonts() override { return fonts_; }
  std::int32_t pixelsPerInch() override { return pixelsPerInch_; }
  std::vector<std::string> screenFonts() override { return screenFonts_; }
  std::string setting(const std::string& key, const std::string& name,
                      const std::string& defaultValue) override {
    return settings_.value(key, name, defaultValue);
  }
  std::string mediumDate() override;
  std::string commonFilesFolder() override { return commonFilesFolder_; }
  char pathSeparator() const override { return '/'; }
  bool fileExists(const std::string& path) override;
  // Remembers the call; there is no help window to show.
  std::intptr_t openHelp(Form* owner, const std::string& file, HelpCommand command,
                         const std::string& topic) override;
  ObjectRef createObject(const std::string& programId) override;

 protected:
  HeadlessSystem() { setScale(100); }

  std::int32_t pixelsPerInch_ = 0;

 private:
  std::optional<DesktopFonts> fonts_;
  std::vector<std::string> screenFonts_{"DejaVu Sans", "DejaVu Sans Mono", "DejaVu Serif"};
  SettingsFile settings_;
  std::string commonFilesFolder_ = "/", mediumDate_;
  std::vector<HelpCall> helpCalls_;
};

}  // namespace vmgv

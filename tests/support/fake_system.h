// A system whose answers a test sets.
#pragma once

#include <string>
#include <vector>

#include "support/automation/error.h"
#include "support/forms/system_port.h"

namespace vmgv {

class FakeSystem : public SystemPort {
 public:
  std::optional<DesktopFonts> fonts;
  std::int32_t ppi = 96;
  std::optional<std::string> helpFolder;
  int settingReads = 0;
  int fontReads = 0;
  std::vector<std::string> helpCalls;

  std::optional<DesktopFonts> desktopFonts() override {
    ++fontReads;
    return fonts;
  }
  std::int32_t pixelsPerInch() override { return ppi; }
  std::vector<std::string> screenFonts() override { return {}; }
  std::string setting(const std::string& key, const std::string& name,
                      const std::string& defaultValue) override {
    ++settingReads;
    const bool known = key == "SOFTWARE\\Velmora\\Common" && name == "helpFolder";
    return known ? helpFolder.value_or(defaultValue) : "?";
  }
  std::string mediumDate() override { return "21-Nov-26"; }
  std::string commonFilesFolder() override { return "C:\\Common\\"; }
  char pathSeparator() const override { return '\\'; }
  bool fileExists(const std::string&) override { return false; }
  std::intptr_t openHelp(Form*, const std::string& file, HelpCommand command,
                         const std::string& topic) override {
    helpCalls.push_back(file + "|" + std::to_string(static_cast<unsigned>(command)) + "|" + topic);
    return 42;
  }
  ObjectRef createObject(const std::string&) override { throw Error(ErrorNumber::CannotCreateObject); }
};

}  // namespace vmgv

// The system around a Windows program: its fonts, registry, help and automation objects.
#pragma once

#include <functional>

#include "frontends/win32/win32_desktop.h"
#include "support/forms/system_port.h"

namespace vmgv {

class Win32System final : public SystemPort {
 public:
  // The desktop shows what the user must know, and outlives the system.
  explicit Win32System(Win32Desktop& desktop) noexcept : desktop_(desktop) {}

  // Makes the objects of programs in place of the system; null stands for one that is not installed.
  std::function<ObjectRef(const std::string& programId)> objectFactory;

  std::optional<DesktopFonts> desktopFonts() override;
  std::int32_t pixelsPerInch() override;
  std::vector<std::string> screenFonts() override;
  std::string mediumDate() override;
  // A string below HKEY_LOCAL_MACHINE: in this program's own view of the registry, else in the other width's.
  std::string setting(const std::string& key, const std::string& name,
                      const std::string& defaultValue) override;
  std::string commonFilesFolder() override;
  char pathSeparator() const override { return '\\'; }
  bool fileExists(const std::string& path) override;
  std::intptr_t openHelp(Form* owner, const std::string& file, HelpCommand command,
                         const std::string& topic) override;
  // What "Excel.Application" creates may be another program: the setting "excelProgId" of
  // SOFTWARE\Velmora\vmGridViews.
  ObjectRef createObject(const std::string& programId) override;

 private:
  Win32Desktop& desktop_;
};

}  // namespace vmgv

// The system around a Windows program: its fonts, registry, help and automation objects.
#pragma once

#include "frontends/win32/win32_desktop.h"
#include "support/forms/system_port.h"

namespace vmgv {

class Win32System final : public SystemPort {
 public:
  // The desktop shows what the user must know, and outlives the system.
  explicit Win32System(Win32Desktop& desktop) noexcept : desktop_(desktop) {}

  std::optional<DesktopFonts> desktopFonts() override;
  std::int32_t pixelsPerInch() override;
  // A string below HKEY_LOCAL_MACHINE: in this program's own view of the registry, else in the other width's.
  std::string setting(const std::string& key, const std::string& name,
                      const std::string& defaultValue) override;
  std::string commonFilesFolder() override;
  char pathSeparator() const override { return '\\'; }
  std::intptr_t openHelp(Form* owner, const std::string& file, HelpCommand command,
                         const std::string& topic) override;
  // What "Excel.Application" creates may be another program: the setting "excelProgId" of
  // SOFTWARE\Velmora\vmGridViews.
  ObjectRef createObject(const std::string& programId) override;

 private:
  Win32Desktop& desktop_;
};

}  // namespace vmgv

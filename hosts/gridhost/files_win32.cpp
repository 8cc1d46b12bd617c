#include <windows.h>

#include "hosts/gridhost/files.h"
#include "hosts/player/paths.h"

namespace vmgv {

std::filesystem::path programFolder() {
  std::wstring path(32'768, L'\0');  // the longest there is
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return std::filesystem::path(path).parent_path();
}

std::filesystem::path shippedFile(const std::filesystem::path& name) {
  const std::filesystem::path installed = programFolder() / name;
  std::error_code failed;
  return std::filesystem::exists(installed, failed) ? installed : programFolder().parent_path() / name;
}

SettingsFile readSettings() {
  SettingsFile settings;
  settings.set("SOFTWARE\\Velmora\\Common", "helpFolder", pathText(shippedFile("help")));
  return settings;
}

}  // namespace vmgv

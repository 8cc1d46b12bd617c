#include "hosts/gridhost/files.h"

#include <iostream>

#include "frontends/common/installation.h"

namespace vmgv {

std::filesystem::path shippedFile(const std::filesystem::path& name) { return installedFile(name); }

SettingsFile readSettings() {
  SettingsFile settings = installedSettings();
  for (const std::string& message : settings.messages()) std::cerr << message << '\n';
  return settings;
}

}  // namespace vmgv

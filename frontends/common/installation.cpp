#include "frontends/common/installation.h"

#include <dlfcn.h>

#include <cstdlib>

#include "support/help/setting.h"

namespace vmgv {
namespace {

constexpr const char* kSharedFiles = "share/vmGridViews";
constexpr const char* kSettingsFile = "vmGridViews.conf";

// The file that this code was loaded from.
std::filesystem::path thisModule() {
  static const char inIt = 0;
  std::error_code failed;
  Dl_info module{};
  // Of a program the loader knows what the caller named it.
  if (dladdr(&inIt, &module) != 0 && module.dli_fname[0] == '/') {
    std::filesystem::path file = std::filesystem::canonical(module.dli_fname, failed);
    if (!failed) return file;
  }
  return std::filesystem::read_symlink("/proc/self/exe", failed);
}

// The folder with "bin" and "lib" in it; the latter may have a folder for each architecture.
std::filesystem::path prefix() {
  const std::filesystem::path nearest = thisModule().parent_path();
  for (std::filesystem::path folder = nearest; folder.has_relative_path(); folder = folder.parent_path()) {
    const std::string name = folder.filename().string();
    if (name == "bin" || name.starts_with("lib")) return folder.parent_path();
  }
  return nearest.parent_path();
}

}  // namespace

std::filesystem::path installedFile(const std::filesystem::path& name) {
  std::error_code failed;
  const std::filesystem::path installed = prefix() / kSharedFiles / name, built = prefix() / name;
  const bool onlyBuilt =
      !std::filesystem::exists(installed, failed) && std::filesystem::exists(built, failed);
  return onlyBuilt ? built : installed;
}

SettingsFile installedSettings() {
  std::vector<std::filesystem::path> places;
  if (const char* home = std::getenv("HOME")) {
    places.push_back(std::filesystem::path(home) / ".config" / kSettingsFile);
  }
  places.push_back(std::filesystem::path("/etc") / kSettingsFile);
  SettingsFile settings = SettingsFile::readFirst(places);
  if (settings.value(kHelpSettingsKey, kHelpFolderSetting, {}).empty()) {
    settings.set(kHelpSettingsKey, kHelpFolderSetting, installedFile("help").string());
  }
  return settings;
}

}  // namespace vmgv

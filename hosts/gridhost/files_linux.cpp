#include "hosts/gridhost/files.h"

#include <cstdlib>
#include <iostream>

namespace vmgv {
namespace {

constexpr const char* kSharedFiles = "share/vmGridViews";
constexpr const char* kSettingsFile = "vmGridViews.conf";
constexpr const char* kSettingsKey = "SOFTWARE\\Velmora\\Common";
constexpr const char* kHelpFolder = "helpFolder";

}  // namespace

std::filesystem::path programFolder() {
  std::error_code failed;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", failed);
  return failed ? std::filesystem::current_path(failed) : program.parent_path();
}

std::filesystem::path shippedFile(const std::filesystem::path& name) {
  const std::filesystem::path root = programFolder().parent_path();
  const std::filesystem::path built = root / name, installed = root / kSharedFiles / name;
  std::error_code failed;
  return std::filesystem::exists(installed, failed) ? installed : built;
}

SettingsFile readSettings() {
  std::vector<std::filesystem::path> places;
  if (const char* home = std::getenv("HOME")) {
    places.push_back(std::filesystem::path(home) / ".config" / kSettingsFile);
  }
  places.push_back(std::filesystem::path("/etc") / kSettingsFile);
  SettingsFile settings = SettingsFile::readFirst(places);
  for (const std::string& message : settings.messages()) std::cerr << message << '\n';
  if (settings.value(kSettingsKey, kHelpFolder, {}).empty()) {
    settings.set(kSettingsKey, kHelpFolder, shippedFile("help").string());
  }
  return settings;
}

}  // namespace vmgv

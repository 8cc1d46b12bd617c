// The files that come with gridhost: the demo table, the help pages, the settings.
#pragma once

#include <filesystem>

#include "frontends/common/settings_file.h"

namespace vmgv {

std::filesystem::path programFolder();  // on Windows

// "help" or "data/birdstrikes.csv", beside the program's folder as in a build, or in the shared files of an
// installation. Where it is in neither, the path that a message can name.
std::filesystem::path shippedFile(const std::filesystem::path& name);

// The machine's settings (on Windows the registry has them, and these are none), with the shipped help where
// they name no other. Tells on standard error what could not be read.
SettingsFile readSettings();

}  // namespace vmgv

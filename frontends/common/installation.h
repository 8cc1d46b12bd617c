// What is installed with the product on Linux: the files that it shares, and the machine's settings.
#pragma once

#include <filesystem>

#include "frontends/common/settings_file.h"

namespace vmgv {

// "help" or "data/birdstrikes.csv" in share/vmGridViews beside the program or the shared library that holds
// this code, or as it lies in a build. Where it is in neither, the former, for a message to name.
std::filesystem::path installedFile(const std::filesystem::path& name);

// Of ~/.config/vmGridViews.conf or else /etc/vmGridViews.conf, with the installed help where they name no
// other.
SettingsFile installedSettings();

}  // namespace vmgv

// Where an installation says in which folder its help is.
#pragma once

namespace vmgv {

inline constexpr const char* kHelpSettingsKey = "SOFTWARE\\Velmora\\Common";
inline constexpr const char* kHelpFolderSetting = "helpFolder";

}  // namespace vmgv

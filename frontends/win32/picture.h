// Pictures of windows.
#pragma once

#include <windows.h>

#include <string>

namespace vmgv {

// What the screen shows of the window, with its frame, as a PNG file. Error where it cannot be written.
void savePicture(HWND window, const std::string& path);

}  // namespace vmgv

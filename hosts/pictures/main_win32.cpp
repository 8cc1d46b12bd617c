// pictures DATA.csv FOLDER [SUFFIX]: pictures of every dialog on Windows.
#include <ole2.h>

#include <cstdio>
#include <cwchar>

#include "frontends/win32/win32_printing.h"
#include "frontends/win32/win32_system.h"
#include "hosts/pictures/photographer.h"

namespace {

constexpr int kPoints = 9, kPointsPerInch = 72;

// The same picture on every machine, and one with Greek letters under Wine.
void chooseDesktopFont(int pixelsPerInch) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  for (LOGFONTW* font : {&metrics.lfCaptionFont, &metrics.lfSmCaptionFont, &metrics.lfMenuFont,
                         &metrics.lfStatusFont, &metrics.lfMessageFont}) {
    font->lfHeight = -MulDiv(kPoints, pixelsPerInch, kPointsPerInch);
    font->lfWeight = FW_NORMAL;
    std::wcscpy(font->lfFaceName, L"DejaVu Sans");
  }
  SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 3 || count > 4) {
    std::fprintf(stderr, "usage: pictures DATA.csv FOLDER [SUFFIX]\n");
    return 2;
  }
  if (FAILED(OleInitialize(nullptr))) return 1;
  try {
    SetProcessDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
    vmgv::Win32Desktop desktop;
    vmgv::Win32System system(desktop);
    chooseDesktopFont(system.pixelsPerInch());
    vmgv::Win32Printing printing(desktop);
    vmgv::photographAll({desktop, system, desktop, printing},
                        {arguments[1], arguments[2], count > 3 ? arguments[3] : ""});
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "pictures: %s\n", error.what());
    return 1;
  }
}

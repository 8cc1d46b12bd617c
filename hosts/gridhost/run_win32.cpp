#include "frontends/win32/win32_printing.h"
#include "hosts/gridhost/com_session.h"
#include "hosts/gridhost/host_user.h"
#include "hosts/gridhost/main_window_win32.h"
#include "hosts/gridhost/run.h"
#include "hosts/player/paths.h"

#include <shellapi.h>

namespace vmgv {

int runNative(const Options& options) {
  const ComApartment apartment;
  Win32Desktop desktop;
  Win32Printing printing(desktop);
  ComSession session(options);
  session.engine()->setPrintPort(&printing);
  session.load();
  MainWindow window(session);
  desktop.setMainWindow(window.window());
  session.scripts().setMainWindow(window.window());
  session.onWorkbook = [&](const std::string& path) {
    window.tell(path);
    if (!options.script) {
      ShellExecuteW(window.window(), nullptr, pathOf(path).c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    }
  };
  window.show();
  if (options.script) {
    HostUser user(session.scripts(), desktop);
    return session.play(user);
  }
  window.run();
  return 0;
}

}  // namespace vmgv

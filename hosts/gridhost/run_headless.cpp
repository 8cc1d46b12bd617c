#include "frontends/headless/headless_desktop.h"
#include "hosts/gridhost/core_session.h"
#include "hosts/gridhost/files.h"
#include "hosts/gridhost/run.h"

namespace vmgv {

int runHeadless(const Options& options) {
  HeadlessDesktop desktop;
  desktop.setSettings(readSettings());
  CoreSession session(desktop, options);
  session.load();
  return session.play(desktop);
}

}  // namespace vmgv

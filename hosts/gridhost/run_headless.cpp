#include "frontends/headless/headless_printer.h"
#include "hosts/gridhost/core_session.h"
#include "hosts/gridhost/files.h"
#include "hosts/gridhost/run.h"
#include "hosts/player/paths.h"

namespace vmgv {

int runHeadless(const Options& options) {
  HeadlessDesktop desktop;
  desktop.setSettings(readSettings());
  HeadlessPrinter printer(desktop, pathText(options.out / "printed.pdf"));
  CoreSession session(desktop, options);
  session.engine()->setPrintPort(&printer);
  session.load();
  return session.play(desktop);
}

}  // namespace vmgv

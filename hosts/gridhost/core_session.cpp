#include "hosts/gridhost/core_session.h"

#include "adapters/workbook/application.h"
#include "control/vmgr_edit.h"
#include "hosts/player/paths.h"

namespace vmgv {

CoreSession::CoreSession(WindowPort& window, SystemPort& system, const Options& options)
    : Session(options), system_(system), application_(window, system) {
  auto* editor = new vmgrEdit(application_);
  control_ = editor;
  editor->setGrid(grid());
}

ObjectRef CoreSession::createObject(const std::string& programId) {
  return programId == "Excel.Application" ? makeWorkbookApplication(*this) : ObjectRef();
}

std::string CoreSession::targetPath() {
  return namedWorkbook().empty() ? freshWorkbookPath(pathText(documents)) : pathText(namedWorkbook());
}

}  // namespace vmgv

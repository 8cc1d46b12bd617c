// What vmGridViews.dll offers: its one creatable class.
#include <ole2.h>
//
#include <initguid.h>  // makes the library's header define its ids
//
#include "vmgridviews.h"
//
#include "servers/common/server.h"
#include "servers/control/edit_control.h"
#include "servers/control/resource_ids.h"

namespace vmgv {

const Server& server() {
  static const ServerClass classes[] = {
      {.clsid = CLSID_vmgrEdit,
       .progId = L"vmGridViews.vmgrEdit",
       .caption = EditControl::kCaption,
       .create = EditControl::create,
       .control = ControlFacts{EditControl::kMiscStatus, VMG_TOOLBOX_BITMAP}}};
  static const Server server{classes, LIBID_vmGridViews};
  return server;
}

}  // namespace vmgv

// The way in for a host of this same build that plays scripts: the user of the dialogs, and what else a
// script decides. Every other host uses the control's interfaces alone.
#pragma once

#include <ole2.h>

#include "frontends/user/user_link.h"

namespace vmgv {

class ScriptLink : public UserLink {
 public:
  // What dialogs stand over where no window is active, and what a picture shows where no dialog is open.
  virtual void setMainWindow(HWND window) noexcept = 0;

  // Makes the objects of programs in place of the system. Gives a reference, or null for one not installed.
  using ObjectMaker = IDispatch* (*)(void* context, const char* programId) noexcept;
  virtual void setObjectMaker(ObjectMaker maker, void* context) noexcept = 0;
};

// vmGridViews.dll exports this one by the name kScriptLinkExport: the link to the calling thread's dialogs,
// valid as long as the thread has a control; null where it has none.
inline constexpr const char* kScriptLinkExport = "vmgScriptLink";
using ScriptLinkExport = ScriptLink* (*)() noexcept;

}  // namespace vmgv

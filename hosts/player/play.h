// A script carried out as a user would act on a host and its dialogs; docs/SCRIPTING.md tells the language.
#pragma once

#include <ostream>

#include "hosts/player/stage.h"

namespace vmgv {

// To be called when no dialog is open. Files are written below `outFolder`; the first line that cannot be
// carried out ends the play with "SCRIPT:LINE: reason" on `errors`. 0 where all went well and nothing was
// left open, else 1.
int playScript(const std::filesystem::path& script, const std::filesystem::path& outFolder,
               const Stage& stage, std::ostream& errors);

}  // namespace vmgv

#include "hosts/player/play.h"

#include "hosts/player/player.h"

namespace vmgv {

int playScript(const std::filesystem::path& script, const std::filesystem::path& outFolder,
               const Stage& stage, std::ostream& errors) {
  Player player(script, outFolder, stage, errors);
  IdleHandler* before = stage.user.setIdleHandler(&player);
  const int status = player.run();
  stage.user.setIdleHandler(before);
  return status;
}

}  // namespace vmgv

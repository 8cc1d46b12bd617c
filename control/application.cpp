#include "control/application.h"

namespace vmgv {

Application::Application(WindowPort& window, SystemPort& system, MlStringService& strings)
    : strings_(strings),
      fonts_(system, strings),
      help_(system),
      services_{window, system, strings_, fonts_, help_} {
  installDialogs(*this);
}

void Application::open(Facet facet, const OpenRequest& request) {
  const auto found = launchers_.find(facet);
  if (found == launchers_.end() || found->second.open) return;
  struct Opening {
    bool& open;
    explicit Opening(bool& flag) : open(flag) { open = true; }
    ~Opening() { open = false; }
  } opening(found->second.open);
  found->second.launch(request);
}

}  // namespace vmgv

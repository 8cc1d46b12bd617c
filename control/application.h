// The core of one process (on Windows: of one apartment): the ports it runs on and its dialogs.
#pragma once

#include <functional>
#include <map>
#include <string>

#include "support/frame/services.h"

namespace vmgv {

// What a Show method of the control opens.
enum class Facet { Summary, Sort, Items, Groups, Excel, Format, Preview, General };

struct OpenRequest {          // with what a dialog is opened
  ObjectRef editor;           // the control whose grid is edited
  std::string header;         // of a preview
  bool llToolbar = false;     // of a preview
  bool onlySelected = false;  // of a preview
  bool excelVisible = true;   // of the summary
};

class Application {
 public:
  Application(WindowPort& window, SystemPort& system, MlStringService& strings = processStringService());
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;

  Services& services() noexcept { return services_; }

  // Opens a facet's dialog and returns when it was closed. A facet without a dialog, and one whose dialog is
  // open already, opens nothing. What escapes a dialog is thrown.
  void open(Facet facet, const OpenRequest& request);

  bool offers(Facet facet) const { return launchers_.contains(facet); }  // whether it has a dialog

  // Gives a facet its dialog: a class made from Services, and its opening operation.
  template <class Form, class Show>
  void install(Facet facet, Show show) {
    launchers_[facet].launch = [this, show](const OpenRequest& request) {
      Form form(services_);
      show(form, request);
    };
  }

 private:
  struct Launcher {
    std::function<void(const OpenRequest&)> launch;
    bool open = false;
  };

  MlStringModule strings_;
  SystemFonts fonts_;
  Help help_;
  Services services_;
  std::map<Facet, Launcher> launchers_;
};

// The one list of the product's dialogs.
void installDialogs(Application& application);

}  // namespace vmgv

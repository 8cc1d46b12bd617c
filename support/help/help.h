// Opens the help file at a dialog's own topic or at its contents.
#pragma once

#include <cstdint>
#include <string>

#include "support/forms/system_port.h"

namespace vmgv {

class Help {
 public:
  explicit Help(SystemPort& system) noexcept : system_(system) {}

  // The folder of the help file, with a trailing separator: the installation setting "helpFolder", else a
  // folder below the one that installed programs share. Read once; a later change needs a new process.
  const std::string& HelpFolder();

  // Opens `topic`, such as "gridViewsSorting"; ".htm" is appended to the caller's text where neither it nor
  // ".html" ends it. A window type other than "" names the help window to use.
  void ShowHelpTopic(std::string& topic, Form* owner, const std::string& windowType);
  void ShowHelpContents(Form* owner);

  // The window that the last call opened, or 0.
  std::intptr_t helpWindow() const noexcept { return helpWindow_; }

 private:
  std::string helpFile();

  SystemPort& system_;
  std::string folder_;
  std::intptr_t helpWindow_ = 0;
};

}  // namespace vmgv

// Takes a picture of every dialog, in English, in Greek, and in Greek that is a fifth longer than it is.
#pragma once

#include <string>

#include "frontends/user/user.h"
#include "support/forms/system_port.h"
#include "support/pages/print_port.h"

namespace vmgv {

struct Album {
  std::string data;    // a CSV table
  std::string folder;  // made where it does not exist
  std::string suffix;  // FOLDER/NAME.LANGUAGE[.SUFFIX].png
};

// A front end: its windows, its system, its user and its printing.
struct Studio {
  WindowPort& window;
  SystemPort& system;
  User& user;
  PrintPort& printing;
};

void photographAll(const Studio& studio, const Album& album);

}  // namespace vmgv

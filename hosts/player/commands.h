// The list of a script's commands.
#pragma once

#include <span>
#include <string_view>

#include "hosts/player/actions.h"

namespace vmgv {

// Where a command can be carried out.
enum Place : unsigned { kAtHost = 1, kAtDialog = 2, kAtBox = 4 };

// What must be there for a command to be carried out while a long operation lets the user in.
enum class WhileWorking {
  Never,     // it waits until the operation has ended
  Dialog,    // any open dialog
  Control,   // its first word names a visible and enabled control
  Property,  // its first word names a property of the dialog
  Watch      // the same, and the property has the value
};

struct Command {
  std::string_view usage;  // begins with the name
  std::size_t least, most;
  unsigned places;
  WhileWorking whileWorking;
  void (Actions::*run)(Words);

  std::string_view name() const noexcept { return usage.substr(0, usage.find(' ')); }
};

// Throws CannotDo for an unknown command and for a wrong number of words behind it.
const Command& commandOf(const ScriptLine& line);

}  // namespace vmgv

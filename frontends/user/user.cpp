#include "frontends/user/user.h"

namespace vmgv {

const char* nameOf(Box::Kind kind) noexcept {
  switch (kind) {
    case Box::Kind::Message: return "message";
    case Box::Kind::File: return "file picker";
    case Box::Kind::Palette: return "colour picker";
    case Box::Kind::PageSetup: return "page setup";
    case Box::Kind::Print: return "print dialog";
  }
  return "";
}

bool isUsable(const Control& control) {
  for (const Control* at = &control; at; at = at->container()) {
    if (!at->visible() || !at->enabled()) return false;
  }
  return true;
}

void requireUsable(const Control& control) {
  for (const Control* at = &control; at; at = at->container()) {
    if (!at->visible()) throw CannotDo(at->address() + " is hidden");
    if (!at->enabled()) throw CannotDo(at->address() + " is disabled");
  }
}

ListControl& requireEntry(Control& control, int entry) {
  auto* list = dynamic_cast<ListControl*>(&control);
  if (!list) throw CannotDo(control.address() + " is no list");
  if (entry >= 0 && entry < list->listCount()) return *list;
  throw CannotDo(control.address() + " has " + std::to_string(list->listCount()) + " entries, none at " +
                 std::to_string(entry));
}

void requireClickable(const Control& control) {
  const bool openList =
      dynamic_cast<const ListControl*>(&control) && !dynamic_cast<const ComboBox*>(&control);
  if (openList) throw CannotDo(control.address() + " is clicked at an entry: choose one");
  if (control.focusable()) return;
  throw CannotDo(control.address() + ", a " + std::string(control.typeName()) + ", does not react to clicks");
}

}  // namespace vmgv

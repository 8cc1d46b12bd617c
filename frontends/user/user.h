// The hands and eyes of a user, as scripts and tests use them on every front end alike.
//
// Each front end keeps the stack of what it shows: dialogs, and boxes over them. Only the topmost thing can
// be acted on. What a user could not do throws CannotDo with a sentence that says why: the control is
// disabled or hidden, there is no such entry, the wrong thing is on top.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>

#include "support/forms/window_port.h"

namespace vmgv {

class CannotDo : public std::runtime_error {  // what a user could not do either
 public:
  using std::runtime_error::runtime_error;
};

// A box that the platform shows over a form: a message with buttons, a picker, or a dialog of its printing,
// which is answered with Ok, to take what it proposes, or Cancel.
struct Box {
  enum class Kind { Message, File, Palette, PageSetup, Print };
  Kind kind = Kind::Message;
  std::string title;
  std::string text;                                // of a message
  MessageStyle style = MessageStyle::Information;  // of a message
  FileRequest files;                               // of a file picker
  Colour colour = 0;                               // of a colour picker: the one so far
};
const char* nameOf(Box::Kind kind) noexcept;  // "message", "file picker" and so on

// Who acts when the program has nothing to do: a script player, or a test's list of steps.
class IdleHandler {
 public:
  virtual ~IdleHandler() = default;
  // A dialog or box waits for the user. May act once (and be called again from within what that opens).
  // False: nobody will ever act again; a front end without a screen then ends the wait as the title bar
  // would.
  virtual bool waiting() = 0;
  // A long operation lets messages in. May act, as a user could who sees the dialog at work.
  virtual void yielding() = 0;
};

class User {
 public:
  virtual ~User() = default;

  // The dialog on top; null when a box is on top or nothing is shown.
  virtual Form* form() = 0;
  // The box on top, else null.
  virtual const Box* box() = 0;

  virtual void click(Control& control) = 0;
  virtual void doubleClick(Control& control) = 0;
  virtual void doubleClick(Control& list, int entry) = 0;  // of an open list, from 0
  virtual void choose(Control& control, int entry) = 0;    // of a list, from 0
  // Into the field, all replaced, keys, out of the field.
  virtual void enter(Control& control, const std::string& text) = 0;
  virtual void press(Control& control, Key key, int shift) = 0;
  virtual void focus(Control& control) = 0;
  virtual Control* focused() = 0;
  virtual void resize(Size size) = 0;  // the form's inside, in twips
  virtual void closeWindow() = 0;      // by the title bar

  virtual void answer(MessageResult result) = 0;                       // a message box, or printing
  virtual void pick(const std::optional<std::string>& path) = 0;       // a file picker; nothing is Cancel
  virtual void chooseColour(const std::optional<Colour>& colour) = 0;  // a colour picker; nothing is Cancel

  // Who acts from now on, and who did before. Null: nobody, or on a screen a person. The handler must outlive
  // its stay.
  virtual IdleHandler* setIdleHandler(IdleHandler* handler) noexcept = 0;

  // A picture of the topmost window as PNG. Error where there is no screen or the file cannot be written.
  virtual void picture(const std::string& path) = 0;
};

// Visible and enabled, with its containers: what a user can act on, on every front end.
bool isUsable(const Control& control);
void requireUsable(const Control& control);  // throws CannotDo

// A control as the list that an act needs; throws CannotDo where it is none or has no such entry.
ListControl& requireEntry(Control& control, int entry);
// An open list takes clicks on its entries; throws CannotDo for it and for what takes none at all.
void requireClickable(const Control& control);

}  // namespace vmgv

// The frame that every dialog repeats: opening, fonts and captions, OK, Cancel, Help, closing.
#pragma once

#include <string>
#include <string_view>

#include "support/forms/form.h"
#include "support/frame/services.h"

namespace vmgv {

// A dialog lives for one opening: it is made, shown by its opening operation, and dropped.
class Dialog {
 public:
  Dialog(Services& services, std::string formName, std::string_view helpTopic);
  Dialog(const Dialog&) = delete;
  Dialog& operator=(const Dialog&) = delete;
  virtual ~Dialog() = default;

  Form& form() noexcept { return form_; }

 protected:
  // OK, Cancel and Help with their keys; called after the form's own controls were added, so that they come
  // last in the tab order. The row to put below those controls.
  layout::Node addButtons();
  // The same without Help.
  layout::Node addClosingButtons();
  CommandButton& addHelpButton();

  // Keeps the editor and takes its grid; a failure leaves no grid.
  void keepReferences(const ObjectRef& editor);
  void dropReferences() noexcept;
  // System font, captions of the buttons there are and of the dialog's own controls, then the rectangles.
  void load();
  // Returns when the form was closed.
  void showModal();
  // Both closing buttons end here: OK applies first.
  virtual void closeBy(const CommandButton& button);

  virtual void setCaptions() = 0;
  virtual void apply() {}

  // A text of the string table into a control; "" where it cannot be had.
  void caption(Control& control, Text id);
  void caption(Form& form, Text id);
  std::string text(Text id);

  Services& services_;
  Form form_;
  ObjectRef editor_;
  ObjectRef grid_;
  CommandButton* cmdOK_ = nullptr;
  CommandButton* cmdCancel_ = nullptr;
  CommandButton* cmdHelp_ = nullptr;

 private:
  std::string_view helpTopic_;
};

}  // namespace vmgv

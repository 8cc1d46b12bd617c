// The format conditions editor: a list of named rules and the rows of the selected one.
#pragma once

#include <array>

#include "support/forms/property_editor.h"
#include "support/frame/dialog.h"

namespace vmgv {

// Each edit goes into the grid at once: closing keeps what was done, and there is nothing to cancel.
class frmFormConditions final : public Dialog {
 public:
  explicit frmFormConditions(Services& services);

  // Shows the format conditions of the editor's grid and returns when the dialog was closed. What fails
  // before it is shown is thrown; what fails later is told to the user.
  void ShowConditions(const ObjectRef& editor);

 private:
  static constexpr std::size_t kToggles = 4;

  void addProperties();
  void setCaptions() override;
  void closeBy(const CommandButton& button) override;

  void fill();
  void enableProperties();

  void showSelected();
  void showRule(const ObjectRef& condition);
  void showColours(const ObjectRef& style);
  void showFont(const ObjectRef& style);
  void emptyRows();

  void writeChoice(const PropertyRow& row, const std::string& text);
  bool writeText(PropertyRow& row);
  bool writeFontSize(PropertyRow& row);
  void pickColour(PropertyRow& row);
  void writeToggle(std::size_t index);

  void addRule();
  void removeRule();

  void paintSelected(SystemColour back, SystemColour fore);
  // The rule that the selected entry names.
  ObjectRef selectedRule() const;
  bool ignoresEdits() const noexcept { return loading_ || smuList_->listIndex() < 0; }

  Toolbar* smuToolbar_ = nullptr;
  ListBox* smuList_ = nullptr;
  PropertyEditor* smuProperties_ = nullptr;
  Toolbar* smuFont_ = nullptr;
  struct Rows {
    PropertyRow *condition, *column, *op, *value1, *value2, *settings, *backColour, *foreColour, *font,
        *fontSize;
  } rows_{};
  bool loading_ = false;     // the dialog fills the rows itself
  bool validating_ = false;  // what a refused value causes asks for no other validation
};

}  // namespace vmgv

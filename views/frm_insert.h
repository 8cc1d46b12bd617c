// The name-entry dialog: asks for the name of a view or of a state.
#pragma once

#include <string>

#include "support/frame/dialog.h"

namespace vmgv {

class frmInsert final : public Dialog {
 public:
  explicit frmInsert(Services& services);

  // Each shows the dialog once and returns the text as typed after OK, else "". An empty name confirmed by OK
  // is
  // "" too.
  std::string Insert();                                   // of a new view
  std::string SaveAs();                                   // of a view saved under another name
  std::string NewConditionName(const std::string& name);  // of a state, which may have a name already

 private:
  std::string ask(Text formCaption, Text title);
  void setCaptions() override;
  void closeBy(const CommandButton& button) override;

  Text formCaption_ = Text::ImportViewsCaption;
  Text title_ = Text::NewViewName;
  Label* lbTitle_;
  TextBox* txtName_;
  bool confirmed_ = false;
};

}  // namespace vmgv

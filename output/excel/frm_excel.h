// The export dialog: which rows go to the workbook, whether into a template, and how far the export is.
#pragma once

#include "support/frame/dialog.h"

namespace vmgv {

class frmExcel final : public Dialog {
 public:
  explicit frmExcel(Services& services);

  // Shows the dialog for the editor's grid; returns when it was closed.
  void ShowExcel(const ObjectRef& editor);

 private:
  void setCaptions() override;
  void closeBy(const CommandButton& button) override;
  void showOptions();
  void browse();
  void followTemplate();
  void startExport();
  void cancel();
  bool buttonKey(Key key);

  CheckBox* chkPreviewRow_;
  CheckBox* chkSelected_;
  CheckBox* chkPivot_;
  Label* Label2_;
  TextBox* txtTemplate_;
  CommandButton* cmdOpen_;
  ProgressBar* prbar_;
  Label* Label1_;
  bool cancelled_ = false;
  bool exporting_ = false;
};

}  // namespace vmgv

// General display settings: the preview row, alternate row colours, columns that fill the width.
#pragma once

#include <vector>

#include "support/frame/dialog.h"

namespace vmgv {

class frmOther final : public Dialog {
 public:
  explicit frmOther(Services& services);

  // Shows the settings of the editor's grid and writes them back on OK. Returns when the dialog was closed.
  // Nothing that fails is reported.
  void ShowSettings(const ObjectRef& editor);

 private:
  void setCaptions() override;
  void apply() override;
  void fillColumns();
  void showPreviewColumn(const Value& previewColumn);
  void showColours();
  void checkPreviewRows();
  void applyPreviewColumn();

  Frame* Frame1_;
  ComboBox* cboPreviewLine_;
  Label* Label1_;
  TextBox* txtPreviewRows_;
  Frame* Frame4_;
  CheckBox* chkAltColors_;
  CheckBox* chkExpandLastCol_;
  std::vector<std::string> dataFields_;  // of the columns, in the order of the collection
};

}  // namespace vmgv

// The hub: a button for each dialog of the control, with a line beside it that says what it does.
#pragma once

#include <vector>

#include "support/frame/dialog.h"

namespace vmgv {

class frmSummary final : public Dialog {
 public:
  explicit frmSummary(Services& services);

  // Shows the hub for a control that has a grid, with or without the export's button; returns when it was
  // closed. Its buttons call the control's Show methods; a conditions editor that fails is reported, all else
  // is not.
  void ShowSummary(const ObjectRef& editor, bool excelVisible);

 private:
  struct Row {
    CommandButton* button = nullptr;
    Label* label = nullptr;
  };

  void setCaptions() override;
  std::function<void()> actionOf(std::size_t row);
  void closeExcelGap(WindowPort& window);

  Frame* Frame1_;
  std::vector<Row> rows_;
  CommandButton* cmdClose_;
};

}  // namespace vmgv

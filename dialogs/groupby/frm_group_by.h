// The group-by dialog: up to three levels of groups, and how the grid shows its groups.
#pragma once

#include <array>

#include "support/frame/dialog.h"

namespace vmgv {

class frmGroupBy final : public Dialog {
 public:
  explicit frmGroupBy(Services& services);

  // Shows the groups of the editor's grid and, on OK, writes levels and options back. Returns when the dialog
  // was closed. Throws where the grid cannot be shown whole, as with a fourth group: OK would lose what is
  // missing.
  void ShowGroups(const ObjectRef& editor);

 private:
  static constexpr int kLevels = 3;

  struct Level {
    Frame* frame = nullptr;
    ComboBox* cboGroups = nullptr;
    std::array<OptionButton*, 2> optOrder{};  // ascending, descending
  };

  Level addLevel(int level);
  layout::Node addOptions();
  void setCaptions() override;
  void apply() override;
  void fillColumns();
  void showGroups();
  void showOptions();
  void addGroup(const Level& level);

  std::array<Level, kLevels> levels_{};
  Frame* Frame4_ = nullptr;
  CheckBox* chkExpand_ = nullptr;  // collapses the groups
  CheckBox* chkTotal_ = nullptr;
  CheckBox* chkBox_ = nullptr;
  TextBox* txtBox_ = nullptr;
};

}  // namespace vmgv

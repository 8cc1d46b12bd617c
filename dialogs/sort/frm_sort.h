// The sort dialog: up to four levels, each a column and a direction.
#pragma once

#include <array>

#include "support/frame/dialog.h"

namespace vmgv {

class frmSort final : public Dialog {
 public:
  explicit frmSort(Services& services);

  // Shows the sort keys of the editor's grid and, on OK, writes the four levels back. Returns when the dialog
  // was closed. Nothing that fails is reported.
  void ShowSort(const ObjectRef& editor);

 private:
  static constexpr int kLevels = 4;

  struct Level {
    Frame* frame = nullptr;
    ComboBox* cboSort = nullptr;
    std::array<OptionButton*, 2> optOrder{};  // ascending, descending
  };

  Level addLevel(int level);
  void setCaptions() override;
  void apply() override;
  void fillColumns();
  void showSortKeys();

  std::array<Level, kLevels> levels_{};
};

}  // namespace vmgv

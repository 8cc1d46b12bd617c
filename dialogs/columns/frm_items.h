// The column chooser: which columns the grid shows, and in what order.
#pragma once

#include "support/frame/dialog.h"

namespace vmgv {

class frmItems final : public Dialog {
 public:
  explicit frmItems(Services& services);

  // Shows the editor's columns, hidden ones on the left, shown ones on the right, and on OK writes `Visible`
  // and `ColPosition`. A grid without columns shows nothing. Without `fill` both lists begin empty. Returns
  // when the dialog was closed; nothing that fails is reported.
  void ShowItems(const ObjectRef& editor, bool fill);

 private:
  enum class Direction { Up = -1, Down = 1 };

  CommandButton& addMove(const char* name, const char* caption, std::function<void()> move);
  void setCaptions() override;
  void closeBy(const CommandButton& button) override;
  void apply() override;
  void fillLists(std::int32_t count);
  void moveSelected(Direction direction);
  void put(std::int32_t index, const Member& member, const Value& value) const;

  Label* Label2_;
  ListBox* lsFields_;  // hidden columns; an entry's data is its column's index
  ListBox* lsGrid_;    // shown columns, the first on top
  CommandButton* cmdmvOne_;
  CommandButton* cmdmvAll_;
  CommandButton* cmdRmOne_;
  CommandButton* cmdrmAll_;
  Label* Label3_;
  CommandButton* cmdUp_;
  CommandButton* cmdDown_;
};

}  // namespace vmgv

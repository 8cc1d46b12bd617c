#include "dialogs/groupby/frm_group_by.h"

#include <algorithm>

#include "grid/contract.h"
#include "grid/redraw.h"
#include "support/automation/convert.h"
#include "support/errors/errors.h"

namespace vmgv {
namespace {

using layout::column;
using layout::item;
using layout::row;

constexpr int kNoColumn = 0;  // the list's first entry

}  // namespace

frmGroupBy::frmGroupBy(Services& services) : Dialog(services, "frmGroupBy", "gridViewsGrouping") {
  std::vector<layout::Node> rows;
  for (int level = 0; level < kLevels; ++level) {
    Level& added = levels_[static_cast<std::size_t>(level)] = addLevel(level);
    rows.push_back(item(*added.frame));
  }
  rows.push_back(addOptions());
  layout::Node closing = addButtons();
  form_.content = column({column(std::move(rows)), std::move(closing)}).gap(2);
  form_.initialFocus = levels_.front().cboGroups;
}

frmGroupBy::Level frmGroupBy::addLevel(int level) {
  const std::string number = std::to_string(level), fromOne = std::to_string(level + 1);
  auto& frame = form_.add<Frame>("Frame" + fromOne);
  auto& list = form_.add<ComboBox>("cboGroups", &frame, level);
  list.columns = 28;
  auto& pair = form_.add<PictureBox>("Picture" + fromOne, &frame);
  auto& ascending = form_.add<OptionButton>("optOrder" + number, &pair, 0);
  auto& descending = form_.add<OptionButton>("optOrder" + number, &pair, 1);
  ascending.setValue(true);
  pair.content = column({item(ascending), item(descending)});
  frame.content = row({item(list).stretch(), item(pair)}).gap(2);
  return {&frame, &list, {&ascending, &descending}};
}

layout::Node frmGroupBy::addOptions() {
  Frame4_ = &form_.add<Frame>("Frame4");
  chkExpand_ = &form_.add<CheckBox>("chkExpand", Frame4_);
  chkTotal_ = &form_.add<CheckBox>("chkTotal", Frame4_);
  chkBox_ = &form_.add<CheckBox>("chkBox", Frame4_);
  txtBox_ = &form_.add<TextBox>("txtBox", Frame4_);
  txtBox_->setEnabled(false);
  chkBox_->onClick = [this] { txtBox_->setEnabled(chkBox_->value() == 1); };
  Frame4_->content = column({item(*chkExpand_), item(*chkTotal_), item(*chkBox_), item(*txtBox_)});
  return item(*Frame4_);
}

void frmGroupBy::ShowGroups(const ObjectRef& editor) {
  keepReferences(editor);
  load();
  fillColumns();
  showGroups();
  showOptions();
  showModal();
  dropReferences();
}

void frmGroupBy::setCaptions() {
  caption(form_, Text::CreateGroups);
  for (const Level& level : levels_) {
    caption(*level.frame, &level == &levels_.front() ? Text::GroupBy : Text::ThenBy);
    caption(*level.optOrder[0], Text::Ascending);
    caption(*level.optOrder[1], Text::Descending);
    level.cboGroups->setAccessibleName(level.frame->caption());
  }
  caption(*Frame4_, Text::Show);
  caption(*chkExpand_, Text::CollapseGroups);
  caption(*chkTotal_, Text::ShowGroupTotals);
  caption(*chkBox_, Text::ShowGroupByBox);
  txtBox_->setAccessibleName(chkBox_->caption());
}

// In the order of display, hidden columns at their places.
void frmGroupBy::fillColumns() {
  const ObjectRef columns = grid_.object("Columns");
  const std::int32_t count = toLong(columns.get("Count"));
  std::vector<std::string> entries{services_.strings.GetResString(Text::NoColumn, "ΟΧΙ")};
  for (std::int32_t position = 1; position <= count; ++position) {
    entries.push_back(toText(columns.object("ItemByPosition", position).get("Caption")));
  }
  for (const Level& level : levels_) {
    for (const std::string& entry : entries) level.cboGroups->addItem(entry);
    level.cboGroups->setListIndex(kNoColumn);
  }
}

// By text: of columns with one caption the first in the list is shown.
void frmGroupBy::showGroups() {
  const ObjectRef groups = grid_.object("Groups");
  const std::int32_t count = toLong(groups.get("Count"));
  for (std::int32_t i = 0; i < count; ++i) {
    if (i == kLevels) throw Error(ErrorNumber::SubscriptOutOfRange);
    const Level& level = levels_[static_cast<std::size_t>(i)];
    const ObjectRef group = groups.object("Item", i + 1);
    const ObjectRef grouped = grid_.object("Columns").object("Item", toLong(group.get("ColIndex")));
    const std::string caption = toText(grouped.get("Caption"));
    const auto& entries = level.cboGroups->items();
    const auto found = std::find(entries.begin(), entries.end(), caption);
    if (found == entries.end()) throw Error(ErrorNumber::InvalidCall);
    level.cboGroups->setListIndex(static_cast<int>(found - entries.begin()));
    const bool ascending = equals(group.get("SortOrder"), kSortAscending);
    level.optOrder[ascending ? 0 : 1]->setValue(true);
  }
}

// Whether groups are collapsed cannot be asked of a grid: that box starts unchecked.
void frmGroupBy::showOptions() {
  if (isTrue(grid_.get("GroupByBoxVisible"))) chkBox_->setValue(1);
  txtBox_->setText(toText(grid_.get("GroupByBoxInfoText")));
  if (equals(grid_.get("GroupFooterStyle"), kTotalsGroupFooter)) chkTotal_->setValue(1);
}

void frmGroupBy::apply() {
  skipping([this] { grid_.put("Redraw", false); });
  skipping([this] { grid_.object("Groups").call("Clear"); });
  for (const Level& level : levels_) {
    if (level.cboGroups->listIndex() != kNoColumn) addGroup(level);
  }
  const bool box = chkBox_->value() == 1;
  skipping([&] { grid_.put("GroupByBoxVisible", box); });
  if (box) {
    skipping([this] { grid_.put("GroupByBoxInfoText", txtBox_->text()); });
    skipping([this] { grid_.call("Refresh"); });
  }
  const bool totals = chkTotal_->value() == 1;
  skipping([&] { grid_.put("GroupFooterStyle", totals ? kTotalsGroupFooter : kNoGroupFooter); });
  skipping([this] { grid_.call("RefreshGroups", chkExpand_->value() == 1); });
  resumeRedraw(grid_);
}

void frmGroupBy::addGroup(const Level& level) {
  const bool ascending = level.optOrder[0]->value();
  skipping([&] {
    const ObjectRef grouped = grid_.object("Columns").object("ItemByPosition", level.cboGroups->listIndex());
    grid_.object("Groups").call("Add", grouped.get("Index"), ascending ? kSortAscending : kSortDescending);
  });
}

}  // namespace vmgv

#include "dialogs/sort/frm_sort.h"

#include "grid/contract.h"
#include "grid/redraw.h"
#include "support/automation/convert.h"
#include "support/errors/errors.h"

namespace vmgv {
namespace {

// Frames are named as hosts' scripts know them, from the first level to the last.
constexpr std::array<const char*, 4> kFrameNames{"Frame3", "Frame2", "Frame1", "Frame4"};
constexpr int kNoColumn = 0;  // the list's first entry

}  // namespace

frmSort::frmSort(Services& services) : Dialog(services, "frmSort", "gridViewsSorting") {
  for (int level = 0; level < kLevels; ++level) levels_[static_cast<std::size_t>(level)] = addLevel(level);
  std::vector<layout::Node> rows;
  for (const Level& level : levels_) rows.push_back(layout::item(*level.frame));
  layout::Node closing = addButtons();
  form_.content = layout::column({layout::column(std::move(rows)), std::move(closing)}).gap(2);
  form_.initialFocus = levels_.front().cboSort;
}

frmSort::Level frmSort::addLevel(int level) {
  const std::string number = std::to_string(level);
  auto& frame = form_.add<Frame>(kFrameNames[static_cast<std::size_t>(level)]);
  auto& list = form_.add<ComboBox>("cboSort", &frame, level);
  list.columns = 28;
  auto& pair = form_.add<PictureBox>("Picture" + std::to_string(level + 1), &frame);
  auto& ascending = form_.add<OptionButton>("optOrder" + number, &pair, 0);
  auto& descending = form_.add<OptionButton>("optOrder" + number, &pair, 1);
  ascending.setValue(true);
  pair.content = layout::column({layout::item(ascending), layout::item(descending)});
  frame.content = layout::row({layout::item(list).stretch(), layout::item(pair)}).gap(2);
  return {&frame, &list, {&ascending, &descending}};
}

void frmSort::ShowSort(const ObjectRef& editor) {
  keepReferences(editor);
  load();
  fillColumns();
  showSortKeys();
  skipping([this] { showModal(); });
  dropReferences();
}

void frmSort::setCaptions() {
  caption(form_, Text::Sort);
  for (int level = 0; level < kLevels; ++level) {
    const Level& row = levels_[static_cast<std::size_t>(level)];
    caption(*row.frame, level == 0 ? Text::SortBy : Text::ThenBy);
    caption(*row.optOrder[0], Text::Ascending);
    caption(*row.optOrder[1], Text::Descending);
    row.cboSort->setAccessibleName(row.frame->caption());
  }
}

void frmSort::fillColumns() {
  ObjectRef columns;
  std::int32_t count = 0;
  skipping([&] {
    columns = grid_.object("Columns");
    count = toLong(columns.get("Count"));
  });
  if (count == 0) return;
  std::string noColumn = "ΟΧΙ";
  skipping([&] { noColumn = services_.strings.GetResString(Text::NoColumn, noColumn); });
  // A caption that cannot be read leaves its entry blank: an entry's place in the list is the column's index.
  std::vector<std::string> captions(static_cast<std::size_t>(count));
  for (std::int32_t j = 1; j <= count; ++j) {
    skipping([&] {
      captions[static_cast<std::size_t>(j) - 1] = toText(columns.object("Item", j).get("Caption"));
    });
  }
  for (const Level& level : levels_) {
    level.cboSort->addItem(noColumn);
    for (const std::string& caption : captions) level.cboSort->addItem(caption);
    level.cboSort->setListIndex(kNoColumn);
  }
}

void frmSort::showSortKeys() {
  ObjectRef keys;
  std::int32_t count = 0;
  skipping([&] {
    keys = grid_.object("SortKeys");
    count = toLong(keys.get("Count"));
  });
  for (int i = 0; i < std::min<std::int32_t>(count, kLevels); ++i) {
    const Level& level = levels_[static_cast<std::size_t>(i)];
    ObjectRef key;
    skipping([&] { key = keys.item(i + 1).object(); });
    skipping([&] { level.cboSort->setListIndex(toLong(key.get("ColIndex"))); });
    skipping([&] {
      const bool ascending = equals(key.get("SortOrder"), kSortAscending);
      level.optOrder[ascending ? 0 : 1]->setValue(true);
    });
  }
}

void frmSort::apply() {
  skipping([this] { grid_.put("Redraw", false); });
  skipping([this] { grid_.object("SortKeys").call("Clear"); });
  for (const Level& level : levels_) {
    const int column = level.cboSort->listIndex();
    if (column == kNoColumn) continue;
    const bool ascending = level.optOrder[0]->value();
    skipping(
        [&] { grid_.object("SortKeys").call("Add", column, ascending ? kSortAscending : kSortDescending); });
  }
  resumeRedraw(grid_);
}

}  // namespace vmgv

#include "dialogs/columns/frm_items.h"

#include "grid/contract.h"
#include "grid/redraw.h"
#include "support/automation/convert.h"
#include "support/errors/errors.h"
#include "support/strings/spoken.h"

namespace vmgv {
namespace {

using layout::column;
using layout::item;
using layout::row;

// The selected entry goes to the end of the other list; nothing is selected afterwards.
void moveEntry(ListBox& from, ListBox& to) {
  const int selected = from.listIndex();
  if (selected < 0) return;
  to.addItem(from.text(), from.itemData(selected));
  from.removeItem(selected);
}

void moveOne(ListBox& from, ListBox& to) {
  if (from.listCount() > 0 && from.listIndex() < 0) from.setListIndex(0);
  moveEntry(from, to);
}

void moveAll(ListBox& from, ListBox& to) {
  from.setListIndex(-1);
  while (from.listCount() > 0) moveOne(from, to);
}

}  // namespace

frmItems::frmItems(Services& services) : Dialog(services, "frmItems", "gridViewsColumns") {
  Label2_ = &form_.add<Label>("Label2");
  lsFields_ = &form_.add<ListBox>("lsFields");
  cmdmvOne_ = &addMove("cmdmvOne", ">", [this] { moveOne(*lsFields_, *lsGrid_); });
  cmdmvAll_ = &addMove("cmdmvAll", ">>", [this] { moveAll(*lsFields_, *lsGrid_); });
  cmdRmOne_ = &addMove("cmdRmOne", "<", [this] { moveOne(*lsGrid_, *lsFields_); });
  cmdrmAll_ = &addMove("cmdrmAll", "<<", [this] { moveAll(*lsGrid_, *lsFields_); });
  Label3_ = &form_.add<Label>("Label3");
  lsGrid_ = &form_.add<ListBox>("lsGrid");
  cmdUp_ = &addMove("cmdUp", "", [this] { moveSelected(Direction::Up); });
  cmdDown_ = &addMove("cmdDown", "", [this] { moveSelected(Direction::Down); });
  auto& Line1 = form_.add<Line>("Line1");
  auto& Line2 = form_.add<Line>("Line2");
  layout::Node closing = addButtons();

  Label2_->buddy = lsFields_;
  Label3_->buddy = lsGrid_;
  cmdUp_->picture = CommandButton::Picture::ArrowUp;
  cmdDown_->picture = CommandButton::Picture::ArrowDown;
  lsFields_->onDblClick = [this] { moveEntry(*lsFields_, *lsGrid_); };
  lsGrid_->onDblClick = [this] { moveEntry(*lsGrid_, *lsFields_); };

  // A rule leads from each caption to the end of its list.
  layout::Node captions = row({row({item(*Label2_), item(Line1).stretch()}), layout::Node(),
                               row({item(*Label3_), item(Line2).stretch()}), layout::Node()});
  layout::Node lists = row({item(*lsFields_).filled(),
                            column({layout::space(), item(*cmdmvOne_), item(*cmdmvAll_), item(*cmdRmOne_),
                                    item(*cmdrmAll_), layout::space()}),
                            item(*lsGrid_).filled(),
                            column({layout::space(), item(*cmdUp_), item(*cmdDown_), layout::space()})});
  form_.content = column({layout::table({std::move(captions), std::move(lists)}), std::move(closing)}).gap(2);
  form_.initialFocus = lsFields_;
}

CommandButton& frmItems::addMove(const char* name, const char* caption, std::function<void()> move) {
  auto& button = form_.add<CommandButton>(name);
  button.setCaption(caption);
  button.onClick = std::move(move);
  return button;
}

void frmItems::ShowItems(const ObjectRef& editor, bool fill) {
  keepReferences(editor);
  load();
  std::int32_t count = -1;  // unknown
  if (fill) skipping([&] { count = toLong(grid_.object("Columns").get("Count")); });
  if (count == 0) return;
  fillLists(count);
  skipping([this] { showModal(); });
  dropReferences();
}

void frmItems::setCaptions() {
  caption(form_, Text::ShowData);
  caption(*Label2_, Text::AvailableColumns);
  caption(*Label3_, Text::Show);
  lsFields_->setAccessibleName(Label2_->caption());
  lsGrid_->setAccessibleName(Label3_->caption());
  const std::int32_t language = services_.strings.language();
  for (const auto& [button, name] : {std::pair{cmdmvOne_, Spoken::ShowColumn},
                                     {cmdmvAll_, Spoken::ShowAllColumns},
                                     {cmdRmOne_, Spoken::HideColumn},
                                     {cmdrmAll_, Spoken::HideAllColumns},
                                     {cmdUp_, Spoken::MoveUp},
                                     {cmdDown_, Spoken::MoveDown}}) {
    button->setAccessibleName(spokenName(name, language));
  }
}

// In the order of display. A column that cannot be read is in neither list, and OK leaves it as it is.
void frmItems::fillLists(std::int32_t count) {
  for (std::int32_t position = 1; position <= count; ++position) {
    skipping([&] {
      const ObjectRef shown = grid_.object("Columns").object("ItemByPosition", position);
      ListBox& list = isTrue(shown.get("Visible")) ? *lsGrid_ : *lsFields_;
      std::string caption = toText(shown.get("Caption"));
      list.addItem(std::move(caption), toLong(shown.get("Index")));
    });
  }
}

void frmItems::moveSelected(Direction direction) {
  const int from = lsGrid_->listIndex(), to = from + static_cast<int>(direction);
  if (from < 0 || to < 0 || to >= lsGrid_->listCount()) return;
  std::string text = lsGrid_->text();
  const std::int32_t index = lsGrid_->itemData(from);
  lsGrid_->removeItem(from);
  lsGrid_->insertItem(to, std::move(text), index);
  lsGrid_->setListIndex(to);
}

void frmItems::closeBy(const CommandButton& button) {
  if (&button == cmdOK_ && lsGrid_->listCount() == 0) {
    services_.window.messageBox(text(Text::SelectAColumn), MessageStyle::Information, text(Text::Columns));
    return;
  }
  Dialog::closeBy(button);
}

// Hidden columns first, so that they do not disturb the positions of the shown ones afterwards.
void frmItems::apply() {
  skipping([this] { grid_.put("Redraw", false); });
  for (int i = 0; i < lsFields_->listCount(); ++i) put(lsFields_->itemData(i), "Visible", false);
  for (int i = 0; i < lsGrid_->listCount(); ++i) {
    put(lsGrid_->itemData(i), "Visible", true);
    put(lsGrid_->itemData(i), "ColPosition", i + 1);
  }
  resumeRedraw(grid_);
}

void frmItems::put(std::int32_t index, const Member& member, const Value& value) const {
  skipping([&] { grid_.object("Columns").item(index).object().put(member, value); });
}

}  // namespace vmgv

#include "dialogs/general/frm_other.h"

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

constexpr int kNoPreview = 0;  // the list's first entry
constexpr double kFewestRows = 1, kMostRows = 20;

// The number that the text begins with, 0 where it begins with none.
double leadingNumber(const std::string& text) {
  return numberFromText(text.substr(0, text.find_first_not_of("0123456789"))).value_or(0);
}

}  // namespace

frmOther::frmOther(Services& services) : Dialog(services, "frmOther", "gridViewsGeneral") {
  Frame1_ = &form_.add<Frame>("Frame1");
  cboPreviewLine_ = &form_.add<ComboBox>("cboPreviewLine", Frame1_);
  Label1_ = &form_.add<Label>("Label1", Frame1_);
  txtPreviewRows_ = &form_.add<TextBox>("txtPreviewRows", Frame1_);
  Frame4_ = &form_.add<Frame>("Frame4");
  chkAltColors_ = &form_.add<CheckBox>("chkAltColors", Frame4_);
  chkExpandLastCol_ = &form_.add<CheckBox>("chkExpandLastCol", Frame4_);
  layout::Node closing = addButtons();

  Label1_->buddy = txtPreviewRows_;
  txtPreviewRows_->columns = 4;
  txtPreviewRows_->setText("1");
  // Backspace is no digit either: the user deletes with Delete, or types over a selection.
  txtPreviewRows_->onKeyPress = [](char32_t typed) { return typed < U'0' || typed > U'9'; };
  txtPreviewRows_->onLostFocus = [this] { checkPreviewRows(); };

  Frame1_->content = column({item(*cboPreviewLine_), row({item(*Label1_), item(*txtPreviewRows_)})});
  Frame4_->content = column({item(*chkAltColors_), item(*chkExpandLastCol_)});
  form_.content = column({column({item(*Frame1_), item(*Frame4_)}), std::move(closing)}).gap(2);
}

void frmOther::ShowSettings(const ObjectRef& editor) {
  keepReferences(editor);
  load();
  Value previewColumn;
  skipping([&] { previewColumn = plain(grid_.get("PreviewColumn")); });
  fillColumns();
  showPreviewColumn(previewColumn);
  showColours();
  skipping([this] { showModal(); });
  dropReferences();
}

void frmOther::setCaptions() {
  caption(form_, Text::Miscellaneous);
  caption(*Frame1_, Text::PreviewColumn);
  caption(*Label1_, Text::LineCount);
  caption(*Frame4_, Text::Show);
  caption(*chkAltColors_, Text::AlternateColours);
  caption(*chkExpandLastCol_, Text::FitColumns);
  cboPreviewLine_->setAccessibleName(Frame1_->caption());
  txtPreviewRows_->setAccessibleName(Label1_->caption());
}

// An entry's place in the list is the column's index, so one that cannot be read is blank.
void frmOther::fillColumns() {
  cboPreviewLine_->addItem(text(Text::NoPreviewColumn));
  ObjectRef columns;
  std::int32_t count = 0;
  skipping([&] {
    columns = grid_.object("Columns");
    count = toLong(columns.get("Count"));
  });
  for (std::int32_t index = 1; index <= count; ++index) {
    ObjectRef offered;
    std::string caption, dataField;
    skipping([&] { offered = columns.item(index).object(); });
    skipping([&] { caption = toText(offered.get("Caption")); });
    skipping([&] { dataField = toText(offered.get("DataField")); });
    cboPreviewLine_->addItem(std::move(caption));
    dataFields_.push_back(std::move(dataField));
  }
}

// A grid may name its preview column by field or by index.
void frmOther::showPreviewColumn(const Value& previewColumn) {
  skipping([&] {
    const std::string name = previewColumn.isNull() ? std::string() : toText(previewColumn);
    if (name.empty()) return cboPreviewLine_->setListIndex(kNoPreview);
    const auto found = std::find(dataFields_.begin(), dataFields_.end(), name);
    cboPreviewLine_->setListIndex(found == dataFields_.end()
                                      ? toInteger(previewColumn)
                                      : static_cast<int>(found - dataFields_.begin()) + 1);
  });
}

void frmOther::showColours() {
  skipping([this] { chkAltColors_->setValue(isTrue(grid_.get("UseEvenOddColor")) ? 1 : 0); });
  skipping([this] { chkExpandLastCol_->setValue(isTrue(grid_.get("ColumnAutoResize")) ? 1 : 0); });
}

void frmOther::checkPreviewRows() {
  const std::string& rows = txtPreviewRows_->text();
  if (rows.empty()) return txtPreviewRows_->setText("1");
  const double count = leadingNumber(rows);
  if (count >= kFewestRows && count <= kMostRows) return;
  services_.window.messageBox(text(Text::PreviewLinesRange), MessageStyle::Information, {});
}

void frmOther::apply() {
  skipping([this] { grid_.put("Redraw", false); });
  applyPreviewColumn();
  skipping([this] { grid_.put("PreviewRowLines", txtPreviewRows_->text()); });
  skipping([this] { grid_.put("UseEvenOddColor", chkAltColors_->value() == 1); });
  skipping([this] { grid_.put("ColumnAutoResize", chkExpandLastCol_->value() == 1); });
  resumeRedraw(grid_);
}

// A column is shown in the preview row or among the others, not in both.
void frmOther::applyPreviewColumn() {
  const auto show = [this](const Value& which, bool visible) {
    grid_.object("Columns").item(which).object().put("Visible", visible);
  };
  Value before = Null{};
  skipping([&] { before = plain(grid_.get("PreviewColumn")); });
  if (!before.isNull()) skipping([&] { show(before, true); });
  const int chosen = cboPreviewLine_->listIndex();
  if (chosen > kNoPreview) {
    skipping([&] { grid_.put("PreviewColumn", static_cast<std::int16_t>(chosen)); });
    skipping([&] { show(grid_.get("PreviewColumn"), false); });
  } else if (!before.isNull()) {
    skipping([&] { grid_.put("PreviewColumn", Null{}); });
  }
}

}  // namespace vmgv

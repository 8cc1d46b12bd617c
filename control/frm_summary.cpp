#include "control/frm_summary.h"

#include "support/errors/errors.h"

namespace vmgv {
namespace {

using layout::column;
using layout::item;
using layout::row;

struct Entry {
  const char* button;
  const char* label;
  Text caption, line;
  const char* method;  // of the control; null: none
};
constexpr Entry kEntries[] = {
    {"cmdGeneral", "Label8", Text::GeneralButton, Text::GeneralLine, "ShowGeneral"},
    {"cmdGrp", "Label1", Text::GroupButton, Text::GroupLine, "ShowGroups"},
    {"cmdSrt", "Label2", Text::SortButton, Text::SortLine, "ShowSort"},
    {"cmdFld", "Label3", Text::ColumnsButton, Text::ColumnsLine, "ShowItems"},
    {"cmdFnt", "Label4", Text::ShowButton, Text::ShowLine, "ShowOther"},
    {"cmdFrm", "Label5", Text::ConditionsButton, Text::ConditionsLine, "ShowFormat"},
    {"cmdViews", "Label6", Text::ViewsButton, Text::ViewsLine, nullptr},
    {"cmdExcel", "Label7", Text::ExcelButton, Text::ExcelLine, "ShowExcel"},
    {"cmdHelp", "Label9", Text::Help, Text::HelpLine, nullptr},
};
constexpr std::size_t kConditions = 5, kExcel = 7, kHelp = 8;  // places of rows

}  // namespace

frmSummary::frmSummary(Services& services) : Dialog(services, "frmSummary", {}) {
  Frame1_ = &form_.add<Frame>("Frame1");
  std::vector<layout::Node> lines;
  for (const Entry& entry : kEntries) {
    auto& button = form_.add<CommandButton>(entry.button, Frame1_);
    auto& label = form_.add<Label>(entry.label, Frame1_);
    label.buddy = &button;
    button.onClick = actionOf(rows_.size());
    rows_.push_back({&button, &label});
    lines.push_back(row({item(button), item(label)}));
  }
  Frame1_->content = layout::table(std::move(lines));
  cmdClose_ = &form_.add<CommandButton>("cmdClose");
  cmdClose_->isCancel = true;
  cmdClose_->onClick = [this] { closeBy(*cmdClose_); };
  form_.content = column({item(*Frame1_), layout::buttons({cmdClose_})}).gap(2);
}

std::function<void()> frmSummary::actionOf(std::size_t row) {
  if (row == kHelp) {
    return [this] { skipping([this] { services_.help.ShowHelpContents(&form_); }); };
  }
  const char* const method = kEntries[row].method;
  if (!method) return {};
  const auto call = [this, method] { editor_.call(method); };
  if (row == kConditions) {
    return [this, call] { reporting(services_.window, call); };
  }
  return [call] { skipping(call); };
}

void frmSummary::ShowSummary(const ObjectRef& editor, bool excelVisible) {
  keepReferences(editor);
  if (!grid_) return;
  if (!excelVisible) {
    rows_[kExcel].button->setVisible(false);
    rows_[kExcel].label->setVisible(false);
    form_.onLaidOut = [this](WindowPort& window) { closeExcelGap(window); };
  }
  load();
  skipping([this] { showModal(); });
  dropReferences();
}

void frmSummary::setCaptions() {
  caption(form_, Text::Customize);
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    caption(*rows_[i].button, kEntries[i].caption);
    caption(*rows_[i].label, kEntries[i].line);
  }
  caption(*cmdClose_, Text::Close);
}

// Help, the last row, takes the place of the export's row. The form shrinks by two pixels more than its
// contents: that is how it always was.
void frmSummary::closeExcelGap(WindowPort& window) {
  constexpr int kGapPixels = 7, kFormPixels = 9;
  const int pixel = window.pixel().height, height = rows_[kExcel].button->rect().height;
  const auto moveTo = [](Control& control, int top) {
    Rect rect = control.rect();
    rect.top = top;
    control.setRect(rect);
  };
  moveTo(*rows_[kHelp].button, rows_[kExcel].button->rect().top);
  moveTo(*rows_[kHelp].label, rows_[kExcel].label->rect().top);
  Rect frame = Frame1_->rect();
  frame.height -= height + kGapPixels * pixel;
  Frame1_->setRect(frame);
  moveTo(*cmdClose_, cmdClose_->rect().top - height - kGapPixels * pixel);
  form_.setSize({form_.size().width, form_.size().height - height - kFormPixels * pixel});
}

}  // namespace vmgv

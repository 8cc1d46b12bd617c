#include "output/excel/frm_excel.h"

#include "grid/contract.h"
#include "grid/redraw.h"
#include "output/excel/export_engine.h"
#include "support/automation/convert.h"
#include "support/errors/errors.h"

namespace vmgv {

using layout::column;
using layout::item;
using layout::row;

frmExcel::frmExcel(Services& services) : Dialog(services, "frmExcel", "gridViewsExcel") {
  chkPreviewRow_ = &form_.add<CheckBox>("chkPreviewRow");
  chkSelected_ = &form_.add<CheckBox>("chkSelected");
  chkPivot_ = &form_.add<CheckBox>("chkPivot");
  Label2_ = &form_.add<Label>("Label2");
  txtTemplate_ = &form_.add<TextBox>("txtTemplate");
  cmdOpen_ = &form_.add<CommandButton>("cmdOpen");
  auto& Line1 = form_.add<Line>("Line1");
  Label1_ = &form_.add<Label>("Label1");
  prbar_ = &form_.add<ProgressBar>("prbar");
  auto& Line2 = form_.add<Line>("Line2");
  layout::Node closing = addButtons();

  txtTemplate_->columns = 40;
  Label2_->buddy = txtTemplate_;
  cmdOpen_->setCaption("...");
  cmdOpen_->onClick = [this] { browse(); };
  txtTemplate_->onChange = [this] { followTemplate(); };
  const auto closingKey = [this](Key key, int) { return buttonKey(key); };
  cmdOK_->onKeyDown = closingKey;
  cmdCancel_->onKeyDown = closingKey;
  form_.onCloseByUser = [this] { exporting_ ? cancel() : form_.close(); };

  form_.content = column({
      column({item(*chkPreviewRow_), item(*chkSelected_), item(*chkPivot_)}),
      item(Line1),
      column({item(*Label2_), row({item(*txtTemplate_).stretch(), item(*cmdOpen_)})}),
      column({item(*Label1_), item(*prbar_)}),
      item(Line2),
      std::move(closing),
  });
  form_.content.gapUnits = 2;
}

void frmExcel::ShowExcel(const ObjectRef& editor) {
  keepReferences(editor);
  load();
  showOptions();
  cancelled_ = false;
  skipping([this] { showModal(); });
  dropReferences();
}

void frmExcel::setCaptions() {
  caption(form_, Text::Export);
  caption(*chkPreviewRow_, Text::ExportPreviewLine);
  caption(*chkSelected_, Text::SelectedLinesOnly);
  caption(*chkPivot_, Text::CreatePivotTable);
  caption(*Label2_, Text::TemplateFile);
  txtTemplate_->setAccessibleName(Label2_->caption());
  cmdOpen_->setAccessibleName(Label2_->caption());
  prbar_->setAccessibleName(form_.caption());
}

void frmExcel::showOptions() {
  bool hasPreview = false;
  skipping([&] { hasPreview = !isNoPreviewColumn(grid_.get("PreviewColumn")); });
  chkPreviewRow_->setValue(hasPreview ? 1 : 0);
  chkPreviewRow_->setEnabled(hasPreview);
  bool severalRows = false;
  skipping([&] { severalRows = toBoolean(grid_.get("MultiSelect")); });
  chkSelected_->setValue(0);
  chkSelected_->setEnabled(severalRows);
}

void frmExcel::browse() {
  const FileRequest request{{},
                            {{"Excel Files (*.xls)", "*.xls"},
                             {"Excel Template Files (*.xlt)", "*.xlt"},
                             {"Excel Files (*.xlsx)", "*.xlsx;*.xlsm"},
                             {"Excel Template Files (*.xltx)", "*.xltx;*.xltm"}},
                            "xls"};
  const std::string chosen = services_.window.pickFile(request).value_or("");
  chkPivot_->setValue(chosen.empty() ? 0 : 1);
  txtTemplate_->setText(chosen);
}

void frmExcel::followTemplate() { chkPivot_->setValue(txtTemplate_->text().empty() ? 0 : 1); }

void frmExcel::closeBy(const CommandButton& button) {
  if (&button == cmdCancel_) {
    cancel();
  } else if (!exporting_) {
    startExport();
  }
}

void frmExcel::startExport() {
  exporting_ = true;
  for (Control* control : std::initializer_list<Control*>{chkPreviewRow_, chkSelected_, chkPivot_,
                                                          txtTemplate_, cmdOpen_, cmdOK_, cmdHelp_}) {
    control->setEnabled(false);  // only Cancel acts while rows are on their way
  }
  skipping([this] {
    ExportEngine(
        services_,
        {form_, *chkPreviewRow_, *chkSelected_, *chkPivot_, *txtTemplate_, *prbar_, *Label1_, cancelled_},
        grid_)
        .run();
  });
  exporting_ = false;
  if (grid_) resumeRedraw(grid_);
  form_.close();
}

void frmExcel::cancel() {
  services_.window.doEvents();
  cancelled_ = true;
  if (grid_) resumeRedraw(grid_);
  dropReferences();
  form_.close();
}

// Esc on a closing button drops the dialog at once; while rows are on their way it means Cancel, as
// elsewhere.
bool frmExcel::buttonKey(Key key) {
  if (key != Key::Escape || exporting_) return false;
  form_.close();
  return true;
}

}  // namespace vmgv

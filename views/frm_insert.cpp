#include "views/frm_insert.h"

#include "support/text/utf8.h"

namespace vmgv {

using layout::column;
using layout::item;

frmInsert::frmInsert(Services& services) : Dialog(services, "frmInsert", {}) {
  lbTitle_ = &form_.add<Label>("lbTitle");
  txtName_ = &form_.add<TextBox>("txtName");
  layout::Node closing = addClosingButtons();
  lbTitle_->buddy = txtName_;
  form_.content = column({column({item(*lbTitle_), item(*txtName_)}), std::move(closing)}).gap(2);
  form_.initialFocus = txtName_;
}

std::string frmInsert::Insert() { return ask(Text::ImportViewsCaption, Text::NewViewName); }
std::string frmInsert::SaveAs() { return ask(Text::SaveViewAs, Text::NewViewName); }

std::string frmInsert::NewConditionName(const std::string& name) {
  txtName_->setText(name);
  txtName_->select(0, static_cast<int>(countCharacters(name)));  // typing replaces it
  return ask(Text::StateDefinition, Text::NewViewState);
}

std::string frmInsert::ask(Text formCaption, Text title) {
  formCaption_ = formCaption;
  title_ = title;
  load();
  showModal();
  return confirmed_ ? txtName_->text() : std::string();
}

void frmInsert::setCaptions() {
  caption(form_, formCaption_);
  caption(*lbTitle_, title_);
  txtName_->setAccessibleName(lbTitle_->caption());
}

void frmInsert::closeBy(const CommandButton& button) {
  confirmed_ = &button == cmdOK_;
  form_.close();
}

}  // namespace vmgv

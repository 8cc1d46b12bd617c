#include "support/frame/input_box.h"

#include "support/text/utf8.h"

namespace vmgv {

InputBox::InputBox(Services& services) : Dialog(services, kFormName, {}) {
  lbPrompt_ = &form_.add<Label>("lbPrompt");
  txtAnswer_ = &form_.add<TextBox>("txtAnswer");
  lbPrompt_->buddy = txtAnswer_;
  txtAnswer_->columns = 36;
  layout::Node closing = addClosingButtons();
  form_.content = layout::column({layout::column({layout::item(*lbPrompt_), layout::item(*txtAnswer_)}),
                                  std::move(closing)})
                      .gap(2);
  form_.initialFocus = txtAnswer_;
}

std::string InputBox::ask(const std::string& prompt, const std::string& title, const std::string& text) {
  form_.setCaption(title);
  lbPrompt_->setCaption(prompt);
  txtAnswer_->setAccessibleName(prompt);
  txtAnswer_->setText(text);
  txtAnswer_->select(0, static_cast<int>(countCharacters(text)));  // typing replaces it
  load();
  showModal();
  return confirmed_ ? txtAnswer_->text() : std::string();
}

void InputBox::closeBy(const CommandButton& button) {
  confirmed_ = &button == cmdOK_;
  form_.close();
}

}  // namespace vmgv

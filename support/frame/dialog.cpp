#include "support/frame/dialog.h"

#include "support/errors/errors.h"

namespace vmgv {

Dialog::Dialog(Services& services, std::string formName, std::string_view helpTopic)
    : services_(services), form_(std::move(formName)), helpTopic_(helpTopic) {}

layout::Node Dialog::addClosingButtons() {
  cmdOK_ = &form_.add<CommandButton>("cmdOK");
  cmdCancel_ = &form_.add<CommandButton>("cmdCancel");
  cmdOK_->setCaption("OK");
  cmdOK_->isDefault = true;
  cmdCancel_->isCancel = true;
  cmdOK_->onClick = [this] { closeBy(*cmdOK_); };
  cmdCancel_->onClick = [this] { closeBy(*cmdCancel_); };
  return layout::buttons({cmdOK_, cmdCancel_});
}

layout::Node Dialog::addButtons() {
  addClosingButtons();
  return layout::buttons({cmdOK_, cmdCancel_, &addHelpButton()});
}

CommandButton& Dialog::addHelpButton() {
  cmdHelp_ = &form_.add<CommandButton>("cmdHelp");
  cmdHelp_->onClick = [this] {
    skipping([this] {
      std::string topic(helpTopic_);
      services_.help.ShowHelpTopic(topic, &form_, {});
    });
  };
  return *cmdHelp_;
}

void Dialog::keepReferences(const ObjectRef& editor) {
  editor_ = editor;
  skipping([this] { grid_ = editor_.object("Grid"); });
}

void Dialog::dropReferences() noexcept {
  grid_ = {};
  editor_ = {};
}

void Dialog::load() {
  services_.fonts.ApplyFormFont(form_);
  if (cmdCancel_) caption(*cmdCancel_, Text::Cancel);
  if (cmdHelp_) caption(*cmdHelp_, Text::Help);
  setCaptions();
  form_.layOut(services_.window);
}

void Dialog::showModal() {
  form_.open();
  services_.window.showModal(form_);
}

void Dialog::closeBy(const CommandButton& button) {
  if (&button == cmdOK_) apply();
  form_.close();
}

void Dialog::caption(Control& control, Text id) { control.setCaption(text(id)); }
void Dialog::caption(Form& form, Text id) { form.setCaption(text(id)); }

std::string Dialog::text(Text id) {
  std::string found;
  skipping([&] { found = services_.strings.GetResString(id, ""); });
  return found;
}

}  // namespace vmgv

// Asks the user for one line of text.
#pragma once

#include "support/frame/dialog.h"

namespace vmgv {

class InputBox final : public Dialog {
 public:
  static constexpr const char* kFormName = "InputBox";

  explicit InputBox(Services& services);

  // What the user confirms, `text` being proposed; "" where he cancels.
  std::string ask(const std::string& prompt, const std::string& title, const std::string& text);

 private:
  void setCaptions() override {}
  void closeBy(const CommandButton& button) override;

  Label* lbPrompt_ = nullptr;
  TextBox* txtAnswer_ = nullptr;
  bool confirmed_ = false;
};

}  // namespace vmgv

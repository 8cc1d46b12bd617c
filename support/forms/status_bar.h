// A status line: one text at the bottom of a window.
#pragma once

#include "support/forms/form.h"
#include "support/forms/tool_button.h"

namespace vmgv {

class StatusBar final : public PictureBox {
 public:
  StatusBar(Form& form, std::string name, Control* container, std::optional<int> index)
      : PictureBox(form, std::move(name), container, index),
        label_(form.add<Label>(this->name() + ".text", this)) {
    const auto margin = [] { return layout::Node(); };
    content = layout::row({margin(), layout::column({margin(), layout::item(label_), margin()}).stretch()});
  }
  std::string_view typeName() const noexcept override { return ToolButton::kTypeName; }

  void setText(const std::string& text) {
    setCaption(text);
    label_.setCaption(text);
  }

 private:
  Label& label_;
};

}  // namespace vmgv

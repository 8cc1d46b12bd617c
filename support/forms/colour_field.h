// A field that shows a colour, with a button that picks another one.
#pragma once

#include "support/forms/colour.h"
#include "support/forms/controls.h"

namespace vmgv {

class ColourField final : public ControlOf<ColourField> {
 public:
  static constexpr std::string_view kTypeName = "SmartUI";
  using ControlOf::ControlOf;
  bool focusable() const noexcept override { return true; }
  Properties properties() const override;

  // The swatch is what the field shows; the colour of an empty field stands for none.
  Colour swatch() const noexcept { return swatch_; }
  Colour value() const noexcept { return value_; }
  void setColours(Colour swatch, Colour value) {
    change(swatch_, swatch);
    change(value_, value);
  }

  // The swatch in words: "#RRGGBB", or "" for a colour that the desktop chooses.
  std::string swatchText() const;

  void click() {
    if (onClick) onClick();
  }
  std::function<void()> onClick;

 private:
  Colour swatch_ = colourOf(SystemColour::Window), value_ = 0;
};

}  // namespace vmgv

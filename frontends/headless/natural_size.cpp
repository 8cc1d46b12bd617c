#include "frontends/headless/natural_size.h"

#include <algorithm>
#include <cmath>

#include "frontends/headless/text_width.h"
#include "support/forms/colour_field.h"
#include "support/forms/page_preview.h"
#include "support/forms/tool_button.h"

namespace vmgv {
namespace {

// Sizes in dialog units (a quarter of the average letter's width, an eighth of the line's height), after the
// usual desktop guidelines.
constexpr int kButtonWidth = 50, kButtonPadding = 8, kFieldHeight = 14;
constexpr int kIndicatorWidth = 12, kChoiceHeight = 10;
constexpr int kFieldPadding = 6, kArrowWidth = 12;
constexpr int kBarWidth = 107, kBarHeight = 8;
constexpr int kFramePadding = 8, kLineOfText = 8;
constexpr int kToolPadding = 6, kSwatchWidth = 40;
constexpr int kPaneWidth = 160, kPaneHeight = 120;
constexpr int kEntryHeight = 9, kHeaderHeight = 12;

class Measure final : public ControlVisitor {
 public:
  Measure(const Font& font, int pixel) : font_(font), pixel_(pixel) {}

  Size size() const { return size_; }

  void visit(CheckBox& box) override { choice(box); }
  void visit(OptionButton& button) override { choice(button); }
  void visit(ComboBox& combo) override {
    set(letters(combo.columns) + x(kFieldPadding + kArrowWidth), y(kFieldHeight));
  }
  void visit(ColourField&) override { set(x(kSwatchWidth) + y(kFieldHeight), y(kFieldHeight)); }
  void visit(ToolButton& button) override {
    const bool picture = button.picture != ToolButton::Picture::None;
    const double words =
        button.caption().empty() ? 0 : measureText(button.caption(), font_).width + x(kToolPadding);
    set(words + (picture ? y(kFieldHeight) : 0), y(kFieldHeight));
  }
  void visit(TextBox& box) override { set(letters(box.columns) + x(kFieldPadding), y(kFieldHeight)); }
  void visit(CommandButton& button) override {
    if (button.picture != CommandButton::Picture::None) return set(y(kFieldHeight), y(kFieldHeight));
    const TextExtent text = measureText(button.caption(), font_);
    set(std::max(x(kButtonWidth), text.width + x(kButtonPadding)), y(kFieldHeight));
  }
  void visit(ListBox& list) override { set(letters(list.columns) + x(kArrowWidth), entries(list.rows)); }
  void visit(ListView& list) override {
    set(letters(list.columns) + x(kArrowWidth), entries(list.rows) + y(kHeaderHeight));
  }
  void visit(Menu& menu) override {
    set(measureText(menu.caption(), font_).width + 2 * x(kFramePadding), y(kHeaderHeight));
  }
  void visit(Label& label) override {
    const TextExtent text = measureText(label.caption(), font_);
    set(text.width, y(kLineOfText) * text.lines);
  }
  void visit(Frame& frame) override {
    const Insets border = insetsOf(frame, pixel_);
    set(measureText(frame.caption(), font_).width + 2 * x(kFramePadding), border.top + border.bottom);
  }
  void visit(PagePane&) override { set(x(kPaneWidth), y(kPaneHeight)); }
  void visit(PictureBox&) override {}
  void visit(Line&) override { set(0, 2 * pixel_); }
  void visit(ProgressBar&) override { set(x(kBarWidth), y(kBarHeight)); }

 private:
  double x(int units) const { return units * averageAdvance(font_) / 4; }
  double y(int units) const { return units * lineHeight(font_) / 8; }
  double letters(int count) const { return count * averageAdvance(font_); }
  double entries(int count) const { return count * y(kEntryHeight) + x(kFieldPadding); }
  void choice(const Control& control) {
    set(x(kIndicatorWidth) + measureText(control.caption(), font_).width, y(kChoiceHeight));
  }
  int whole(double twips) const { return static_cast<int>(std::ceil(twips / pixel_ - 1e-9)) * pixel_; }
  void set(double width, double height) { size_ = {whole(width), whole(height)}; }

  const Font& font_;
  int pixel_;
  Size size_;
};

}  // namespace

Size naturalSizeOf(const Control& control, int pixel) {
  Measure measure(control.font(), pixel);
  const_cast<Control&>(control).accept(measure);  // visitors may change controls; this one only reads
  return measure.size();
}

Insets insetsOf(const Container& container, int pixel) {
  if (!dynamic_cast<const Frame*>(&container)) return {};
  const int title = static_cast<int>(std::ceil(lineHeight(container.font()) / pixel)) * pixel;
  return {pixel, title, pixel, pixel};
}

}  // namespace vmgv

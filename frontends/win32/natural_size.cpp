#include "frontends/win32/natural_size.h"

#include <algorithm>

#include "frontends/com/text.h"
#include "support/forms/colour_field.h"
#include "support/forms/page_preview.h"
#include "support/forms/tool_button.h"

namespace vmgv {
namespace {

// In dialog units, a quarter of the average letter's width and an eighth of the line's height.
constexpr int kButtonWidth = 50, kButtonPadding = 12, kSignPadding = 8;
constexpr int kFieldPadding = 6;
constexpr int kSwatchWidth = 40;
constexpr int kBarWidth = 107, kBarHeight = 8;
constexpr int kFramePadding = 8;
constexpr int kPaneWidth = 160, kPaneHeight = 120;
// In pixels: the platform does not scale what it draws around the text of a field.
constexpr int kFieldBorder = 4;
constexpr int kRule = 2;  // an etched line
// In pixels of a usual monitor.
constexpr int kButtonBorder = 4;    // above and below the caption
constexpr int kIndicator = 14;      // of a check box or option button, with its border
constexpr int kIndicatorSlack = 4;  // for the rectangle that marks the focus

class Measure final : public ControlVisitor {
 public:
  Measure(const Font& font, FontBook& fonts, const Units& units)
      : units_(units), text_(fonts.context(), fonts.font(font, units.dpi())) {}

  SIZE size() const { return size_; }

  void visit(CheckBox& box) override { choice(box); }
  void visit(OptionButton& button) override { choice(button); }
  void visit(ComboBox& combo) override {
    size_ = {letters(combo.columns) + x(kFieldPadding) + scrollBarWidth(), fieldHeight()};
  }
  void visit(ColourField&) override { size_ = {x(kSwatchWidth) + fieldHeight(), fieldHeight()}; }
  void visit(ToolButton& button) override {
    const int height = text_.lineHeight() + 2 * units_.scaled(kButtonBorder);
    const int words = text_.extent(wide(button.caption())).cx;
    size_ = {button.caption().empty() ? height : words + 2 * x(kButtonPadding), height};
  }
  void visit(TextBox& box) override { size_ = {letters(box.columns) + x(kFieldPadding), fieldHeight()}; }
  void visit(CommandButton& button) override {
    if (button.picture != CommandButton::Picture::None) {
      size_ = {fieldHeight(), fieldHeight()};
      return;
    }
    const std::wstring caption = wide(button.caption());
    const int words = text_.extent(caption).cx;
    if (isSign(caption)) {  // beside a field
      size_ = {std::max(fieldHeight(), words + x(kSignPadding)), fieldHeight()};
    } else {
      size_ = {std::max(x(kButtonWidth), words + x(kButtonPadding)),
               text_.lineHeight() + 2 * units_.scaled(kButtonBorder)};
    }
  }
  void visit(ListBox& list) override { size_ = {listWidth(list.columns), entries(list.rows)}; }
  void visit(ListView& list) override {
    const int header = fieldHeight();
    size_ = {listWidth(list.columns), header + entries(list.rows)};
  }
  void visit(Menu& menu) override {
    size_ = {text_.extent(wide(menu.caption())).cx + 2 * x(kButtonPadding), fieldHeight()};
  }
  void visit(Label& label) override { size_ = text_.extent(wide(label.caption())); }
  void visit(Frame& frame) override {
    size_ = {text_.extent(wide(frame.caption())).cx + 2 * x(kFramePadding), text_.lineHeight() + kRule};
  }
  void visit(PagePane&) override { size_ = {x(kPaneWidth), y(kPaneHeight)}; }
  void visit(PictureBox&) override {}
  void visit(Line&) override { size_ = {0, kRule}; }
  void visit(ProgressBar&) override { size_ = {x(kBarWidth), y(kBarHeight)}; }

 private:
  int x(int units) const { return (units * text_.averageWidth() + 3) / 4; }
  int y(int units) const { return (units * text_.lineHeight() + 7) / 8; }
  int letters(int count) const { return count * text_.averageWidth(); }
  int fieldHeight() const { return text_.lineHeight() + 2 * kFieldBorder; }
  int entries(int count) const { return count * text_.lineHeight() + 2 * kRule; }
  int listWidth(int columns) const { return letters(columns) + x(kFieldPadding) + scrollBarWidth(); }
  int scrollBarWidth() const { return GetSystemMetricsForDpi(SM_CXVSCROLL, static_cast<UINT>(units_.dpi())); }
  static bool isSign(const std::wstring& caption) {
    return !caption.empty() &&
           std::none_of(caption.begin(), caption.end(), [](wchar_t c) { return IsCharAlphaW(c); });
  }
  // Between the indicator and the words lies half a letter.
  void choice(const Control& control) {
    const SIZE words = text_.extent(wide(control.caption()));
    const int indicator = units_.scaled(kIndicator);
    size_ = {indicator + text_.averageWidth() + words.cx + units_.scaled(kIndicatorSlack),
             std::max<LONG>(indicator, words.cy) + units_.scaled(kRule)};
  }

  const Units& units_;
  TextMeasure text_;
  SIZE size_{};
};

}  // namespace

SIZE naturalPixels(const Control& control, FontBook& fonts, const Units& units) {
  Measure measure(control.font(), fonts, units);
  const_cast<Control&>(control).accept(measure);  // visitors may change controls; this one only reads
  return measure.size();
}

Insets naturalInsets(const Container& container, FontBook& fonts, const Units& units) {
  if (!dynamic_cast<const Frame*>(&container)) return {};
  const TextMeasure text(fonts.context(), fonts.font(container.font(), units.dpi()));
  const int border = kRule * units.twipsPerPixel();
  return {border, text.lineHeight() * units.twipsPerPixel(), border, border};
}

}  // namespace vmgv

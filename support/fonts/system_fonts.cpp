#include "support/fonts/system_fonts.h"

#include "support/automation/convert.h"
#include "support/errors/errors.h"

namespace vmgv {
namespace {

constexpr std::int32_t kPointsPerInch = 72;
constexpr std::int32_t kDivisionByZero = 11;
constexpr std::int32_t kNormalWeight = 400;

float divided(double dividend, double divisor) {
  if (divisor == 0) throw Error(kDivisionByZero, "Division by zero");
  return static_cast<float>(dividend / divisor);
}

// A form's control under the font rules: it has one font.
class ControlFont final : public FontTarget {
 public:
  explicit ControlFont(Control& control) : control_(control) {}
  std::string_view typeName() const override { return control_.typeName(); }
  void changeFont(std::string_view property, const std::function<void(Font&)>& change) override {
    if (property != "Font") throw Error(ErrorNumber::MemberNotFound);
    Font font = control_.font();
    change(font);
    control_.setFont(std::move(font));
  }

 private:
  Control& control_;
};

}  // namespace

std::int16_t HeightToPoints(std::int32_t height, std::int32_t pixelsPerInch, std::int32_t pointsPerInch) {
  const float ratio = divided(pixelsPerInch, pointsPerInch);
  return toInteger(divided(height, ratio));
}

std::optional<Font> SystemFonts::GetSystemFont(SystemFont kind) {
  const std::optional<DesktopFonts> fonts = system_.desktopFonts();
  if (!fonts) return {};
  Font font;
  const auto number = static_cast<std::int32_t>(kind);
  if (number < 1 || number > static_cast<std::int32_t>(fonts->size())) return font;
  const LogicalFont& logical = (*fonts)[static_cast<std::size_t>(number) - 1];
  font.name = logical.faceName.substr(0, logical.faceName.find('\0'));
  font.size = -HeightToPoints(logical.height, system_.pixelsPerInch(), kPointsPerInch);
  font.bold = logical.weight > kNormalWeight;
  font.italic = logical.italic;
  font.underline = logical.underline;
  font.strikethrough = logical.strikeOut;
  return font;
}

Font& SystemFonts::DefaultFont() {
  if (!default_) default_ = GetSystemFont(SystemFont::Status);
  if (!default_) default_ = Font{.name = "Tahoma", .size = 8};
  return *default_;
}

FontChoice SystemFonts::choice() {
  Font& font = DefaultFont();
  skipping([&] { font.charset = toInteger(strings_.LanguageCharset()); });
  return {font.name, font.size, font.charset};
}

void SystemFonts::ApplyFormFont(Form& form) {
  skipping([&] {
    const FontChoice chosen = choice();
    Font font = form.font();
    font.name = chosen.name;
    font.size = chosen.size;
    font.charset = chosen.charset;
    form.setFont(std::move(font));
  });
  ApplyControlFonts(form);
}

void SystemFonts::ApplyControlFonts(Form& form) {
  for (const auto& control : form.controls()) {
    ControlFont target(*control);
    ApplyControlFont(target);
  }
}

void SystemFonts::ApplyControlFont(FontTarget& target) {
  skipping([&] { applyFontRules(target, choice()); });
}

}  // namespace vmgv

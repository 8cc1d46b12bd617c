#include "support/fonts/font_rules.h"

#include <algorithm>
#include <array>
#include <span>

#include "support/errors/errors.h"

namespace vmgv {
namespace {

constexpr std::array<std::string_view, 1> kFont{"Font"};
constexpr std::array<std::string_view, 2> kGridFonts{"Font", "ColumnHeaderFont"};
constexpr std::array<std::string_view, 3> kBarFonts{"ChildBandFont", "Font", "ControlFont"};
constexpr std::array<std::string_view, 2> kTabFonts{"Font", "FontSelectedTab"};

struct Rule {
  std::span<const std::string_view> fonts;
  bool notBold = false;  // bold would widen the selected tab
  bool refresh = false;  // the control repaints only when told to
};

constexpr std::array<std::string_view, 21> kPlainTypes{
    "TextBox",      "ComboBox", "CheckBox", "DataList", "DataCombo",   "StatusBar", "CommandButton",
    "OptionButton", "Label",    "TreeView", "DTPicker", "PictureBox",  "SSTab",     "ListView",
    "MSFlexGrid",   "ListBox",  "SmartUI",  "Frame",    "RichTextBox", "TabStrip",  "ImageCombo"};

const Rule* ruleFor(std::string_view typeName) {
  static constexpr Rule plain{kFont}, grid{kGridFonts}, bar{kBarFonts, false, true}, tabs{kTabFonts, true};
  if (std::find(kPlainTypes.begin(), kPlainTypes.end(), typeName) != kPlainTypes.end()) return &plain;
  if (typeName == "GridEX") return &grid;
  if (typeName == "ActiveBar2") return &bar;
  if (typeName == "SSActiveTabs") return &tabs;
  return nullptr;
}

}  // namespace

void applyFontRules(FontTarget& target, const FontChoice& choice) {
  const Rule* rule = ruleFor(target.typeName());
  if (!rule) return;
  for (const std::string_view property : rule->fonts) {
    skipping([&] {
      target.changeFont(property, [&](Font& font) {
        font.name = choice.name;
        font.size = choice.size;
        font.charset = choice.charset;
        if (rule->notBold) font.bold = false;
      });
    });
  }
  if (rule->refresh) skipping([&] { target.refresh(); });
}

}  // namespace vmgv

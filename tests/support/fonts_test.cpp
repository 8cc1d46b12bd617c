// The desktop's fonts on forms and on controls of other makers.
#include <gtest/gtest.h>

#include <map>

#include "support/fonts/system_fonts.h"
#include "tests/support/fake_system.h"

namespace vmgv {
namespace {

DesktopFonts desktop(std::int32_t statusHeight) {
  DesktopFonts fonts;
  for (std::size_t i = 0; i < fonts.size(); ++i) fonts[i].faceName = "Face " + std::to_string(i + 1);
  fonts[3] = {.faceName = std::string("Segoe UI\0junk", 13),
              .height = statusHeight,
              .weight = 401,
              .italic = true,
              .underline = false,
              .strikeOut = true};
  return fonts;
}

struct Fixture {
  FakeSystem system;
  EmbeddedStringService strings;
  SystemFonts fonts{system, strings};
};

class ForeignControl final : public FontTarget {
 public:
  ForeignControl(std::string type, std::vector<std::string> properties) : type_(std::move(type)) {
    for (auto& name : properties) fonts[name] = Font{.name = "Design", .size = 10, .bold = true};
  }
  std::string_view typeName() const override { return type_; }
  void changeFont(std::string_view property, const std::function<void(Font&)>& change) override {
    const auto found = fonts.find(std::string(property));
    if (found == fonts.end()) throw Error(ErrorNumber::MemberNotFound);
    change(found->second);
  }
  void refresh() override { ++refreshed; }

  std::map<std::string, Font> fonts;
  int refreshed = 0;

 private:
  std::string type_;
};

TEST(Fonts, HeightsBecomePoints) {
  EXPECT_EQ(HeightToPoints(-11, 96, 72), -8);
  EXPECT_EQ(HeightToPoints(-15, 120, 72), -9);
  EXPECT_EQ(HeightToPoints(-10, 96, 72), -8);  // -7.5, to the even neighbour
  EXPECT_EQ(HeightToPoints(-6, 96, 72), -4);   // -4.5, likewise
  EXPECT_EQ(HeightToPoints(12, 96, 72), 9);
  EXPECT_THROW(HeightToPoints(-11, 96, 0), Error);
  EXPECT_THROW(HeightToPoints(-11, 0, 72), Error);
  EXPECT_THROW(HeightToPoints(2000000000, 96, 72), Error);
}

TEST(Fonts, SystemFontFollowsTheLogicalFont) {
  Fixture f;
  f.system.fonts = desktop(-15);
  f.system.ppi = 120;
  const Font font = f.fonts.GetSystemFont(SystemFont::Status).value();
  EXPECT_EQ(font, (Font{.name = "Segoe UI", .size = 9, .bold = true, .italic = true, .strikethrough = true}));
  EXPECT_EQ(f.fonts.GetSystemFont(SystemFont::Caption)->name, "Face 1");
  EXPECT_EQ(f.fonts.GetSystemFont(static_cast<SystemFont>(6)), Font());
}

TEST(Fonts, WithoutMetricsTahoma8AndTheFirstAnswerIsKept) {
  Fixture f;
  EXPECT_FALSE(f.fonts.GetSystemFont(SystemFont::Status));
  EXPECT_EQ(f.fonts.DefaultFont(), (Font{.name = "Tahoma", .size = 8}));
  f.system.fonts = desktop(-11);
  EXPECT_EQ(f.fonts.DefaultFont().name, "Tahoma");
}

TEST(Fonts, FormAndControlsInTheLanguagesCharacterSet) {
  Fixture f;
  f.system.fonts = desktop(-12);
  f.strings.setLanguage(kGreek);
  Form form("frm");
  form.setFont({.name = "Design", .size = 12, .bold = true});
  auto& button = form.add<CommandButton>("cmd");
  auto& line = form.add<Line>("Line1");
  auto& bar = form.add<ProgressBar>("prbar");
  line.setFont({.name = "Design"});
  bar.setFont({.name = "Design"});
  f.fonts.ApplyFormFont(form);
  EXPECT_EQ(form.font(), (Font{.name = "Segoe UI", .size = 9, .bold = true, .charset = 161}));
  EXPECT_EQ(button.font(), (Font{.name = "Segoe UI", .size = 9, .charset = 161}));
  EXPECT_EQ(line.font().name, "Design");  // kinds without a rule keep theirs
  EXPECT_EQ(bar.font().name, "Design");
  EXPECT_EQ(f.fonts.DefaultFont().charset, 161);
  EXPECT_EQ(f.system.fontReads, 1);
}

TEST(Fonts, RulesForControlsOfOtherMakers) {
  Fixture f;
  f.system.fonts = desktop(-12);
  ForeignControl grid("GridEX", {"Font", "ColumnHeaderFont"});
  ForeignControl bar("ActiveBar2", {"ChildBandFont", "ControlFont"});  // lacks "Font": skipped
  ForeignControl tabs("SSActiveTabs", {"Font", "FontSelectedTab"});
  ForeignControl unknown("Gauge", {"Font"});
  for (FontTarget* target : std::initializer_list<FontTarget*>{&grid, &bar, &tabs, &unknown}) {
    f.fonts.ApplyControlFont(*target);
  }
  EXPECT_EQ(grid.fonts["Font"].name, "Segoe UI");
  EXPECT_EQ(grid.fonts["ColumnHeaderFont"].name, "Segoe UI");
  EXPECT_TRUE(grid.fonts["Font"].bold);
  EXPECT_EQ(bar.fonts["ChildBandFont"].size, 9);
  EXPECT_EQ(bar.fonts["ControlFont"].size, 9);
  EXPECT_EQ(bar.refreshed, 1);
  EXPECT_FALSE(tabs.fonts["FontSelectedTab"].bold);
  EXPECT_EQ(unknown.fonts["Font"].name, "Design");
}

}  // namespace
}  // namespace vmgv

// Natural sizes: what the layout of every dialog rests on.
#include "frontends/headless/text_width.h"
#include "tests/headless/fixture.h"

namespace vmgv {
namespace {

TEST(TextWidth, AddsAdvancesOfTheWidestLine) {
  Font font;
  font.size = 10;  // 200 twips an em
  struct {
    const char* text;
    double thousandths;
    int lines;
  } const cases[]{
      {"", 0, 1},        {"W", 989, 1},           {"Ωω", 764 + 837, 1}, {"il\nW", 989, 2},
      {"W\r\n", 989, 2}, {"\xFFi", 600 + 278, 1}, {"ά", 659, 1},
  };
  for (const auto& c : cases) {
    const TextExtent extent = measureText(c.text, font);
    EXPECT_NEAR(extent.width, c.thousandths / 5, 1e-6) << c.text;
    EXPECT_EQ(extent.lines, c.lines) << c.text;
  }
}

TEST(NaturalSize, IsWholePixelsAndHoldsTheCaptionAtEveryScale) {
  for (const int percent : {100, 125, 150, 200}) {
    HeadlessDesktop desktop;
    desktop.setScale(percent);
    SampleForm form;
    for (Control* control :
         std::initializer_list<Control*>{&form.first, &form.check, &form.label, &form.cmdOK}) {
      control->setCaption("Φθίνουσα ταξινόμηση των εγγραφών");
      const Size size = desktop.naturalSize(*control);
      EXPECT_EQ(size.width % desktop.pixel().width, 0) << control->address() << " at " << percent;
      EXPECT_EQ(size.height % desktop.pixel().height, 0) << control->address() << " at " << percent;
      EXPECT_GE(size.width, measureText(control->caption(), control->font()).width) << control->address();
    }
    form.label.setCaption("one");
    const int one = desktop.naturalSize(form.label).height;
    form.label.setCaption("one\ntwo");
    EXPECT_NEAR(desktop.naturalSize(form.label).height, 2 * one, desktop.pixel().height);
  }
}

}  // namespace
}  // namespace vmgv

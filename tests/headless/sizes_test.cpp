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
    const int pixel = desktop.pixel().width;
    SampleForm form;
    for (const auto& control : form.controls()) {
      control->setCaption("Φθίνουσα ταξινόμηση των εγγραφών");
      const Size size = desktop.naturalSize(*control);
      EXPECT_EQ(size.width % pixel, 0) << control->address() << " at " << percent;
      EXPECT_EQ(size.height % pixel, 0) << control->address() << " at " << percent;
      const bool captioned =
          !dynamic_cast<ComboBox*>(control.get()) && !dynamic_cast<TextBox*>(control.get()) &&
          !dynamic_cast<ProgressBar*>(control.get()) && !dynamic_cast<PictureBox*>(control.get());
      if (captioned) {
        EXPECT_GE(size.width, measureText(control->caption(), control->font()).width) << control->address();
      }
    }
  }
}

TEST(NaturalSize, GrowsWithTheFontAndTheContent) {
  HeadlessDesktop desktop;
  SampleForm form;
  const Size shortButton = desktop.naturalSize(form.cmdOK);
  form.cmdCancel.setCaption("Cancel");
  EXPECT_EQ(desktop.naturalSize(form.cmdCancel), shortButton) << "short captions leave buttons of one width";
  Font large;
  large.size = 16;
  form.cmdOK.setFont(large);
  EXPECT_GT(desktop.naturalSize(form.cmdOK).height, shortButton.height * 3 / 2);

  const Size narrow = desktop.naturalSize(form.text);
  form.text.columns *= 2;
  EXPECT_GT(desktop.naturalSize(form.text).width, narrow.width);

  form.label.setCaption("one");
  const int one = desktop.naturalSize(form.label).height;
  form.label.setCaption("one\ntwo");
  EXPECT_NEAR(desktop.naturalSize(form.label).height, 2 * one, desktop.pixel().height);
}

TEST(NaturalSize, OnlyFramesHaveABorder) {
  HeadlessDesktop desktop;
  Form form("frmFrames");
  EXPECT_GT(desktop.insets(form.add<Frame>("Frame1")).top, 0);
  EXPECT_EQ(desktop.insets(form.add<PictureBox>("Picture1")).top, 0);
}

}  // namespace
}  // namespace vmgv

// Nothing is clipped and nothing overlaps, in long captions and large fonts.
#include <QPushButton>

#include "tests/qt/fixture.h"

namespace vmgv {
namespace {

using GeometryTest = QtTest;

// Every control at least as large as its widget asks for, inside its container, and clear of its neighbours.
void expectNothingClipped(const Form& form) {
  for (const auto& control : form.controls()) {
    const auto& widget = shownWidget<QWidget>(*control);
    const QSize wanted =
        dynamic_cast<const Container*>(control.get()) ? widget.minimumSizeHint() : widget.sizeHint();
    const bool ownWidth = control->typeName() == "TextBox" || control->caption() == "...";
    if (!ownWidth && wanted.isValid()) {
      EXPECT_GE(widget.width(), wanted.width()) << control->address();
    }
    EXPECT_GE(widget.height(), wanted.height()) << control->address();
    EXPECT_TRUE(widget.parentWidget()->rect().contains(widget.geometry())) << control->address();
    for (const auto& other : form.controls()) {
      if (other == control || other->container() != control->container()) continue;
      EXPECT_FALSE(widget.geometry().intersects(shownWidget<QWidget>(*other).geometry()))
          << control->address() << " lies over " << other->address();
    }
  }
}

TEST_F(GeometryTest, CaptionsFitAtEverySize) {
  for (const double points : {8.0, 9.0, 11.0, 18.0}) {
    for (const char* longer : {"", " ακόμη μεγαλύτερο"}) {
      SampleForm form;
      Font font;
      font.name = "DejaVu Sans";
      font.size = points;
      form.setFont(font);
      for (const auto& control : form.controls()) {
        control->setFont(font);
        if (!control->caption().empty()) control->setCaption(control->caption() + longer);
      }
      SCOPED_TRACE(points);
      play(form, {[&] { expectNothingClipped(form); }});
    }
  }
}

TEST_F(GeometryTest, ButtonsHaveAComfortableWidthUnlessTheyShowASign) {
  SampleForm form;
  form.layOut(desktop);
  EXPECT_EQ(form.cmdOK.rect().width, form.cmdCancel.rect().width);
  EXPECT_GT(form.cmdOK.rect().width, 3 * form.cmdOK.rect().height / 2);
  EXPECT_LT(form.cmdBrowse.rect().width, form.cmdOK.rect().width);
}

TEST_F(GeometryTest, RectanglesAreWholePixels) {
  const Units units(12);
  EXPECT_EQ(units.pixels(Rect{12, 24, 30, 30}), QRect(1, 2, 2, 2));
  // Two neighbours that share an edge between pixels.
  EXPECT_EQ(units.pixels(Rect{0, 0, 18, 12}).right() + 1, units.pixels(Rect{18, 0, 18, 12}).left());
}

}  // namespace
}  // namespace vmgv

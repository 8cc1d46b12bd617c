// Nothing is clipped and nothing overlaps, in long captions and large fonts.
#include "tests/qt/fixture.h"

namespace vmgv {

// Every control at least as large as its widget asks for, inside its container, and clear of its neighbours.
static void expectNothingClipped(const Form& form) {
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

TEST_F(QtTest, CaptionsFitAtEverySize) {
  for (const double points : {9.0, 18.0}) {
    for (const char* longer : {"", " ακόμη μεγαλύτερο"}) {
      SampleForm form;
      Font font = form.font();
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

}  // namespace vmgv

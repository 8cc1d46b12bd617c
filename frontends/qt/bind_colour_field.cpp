// A field that shows a colour, with a button at its end; as one button, since all of it does the same.
#include <QPushButton>
#include <QStyleOptionButton>
#include <QStyleOptionFrame>
#include <QStylePainter>

#include "frontends/qt/binding.h"
#include "frontends/qt/colour.h"
#include "support/forms/colour_field.h"

namespace vmgv {
namespace {

constexpr int kLetters = 12;  // the field's least width

class ColourButton final : public QPushButton {
 public:
  using QPushButton::QPushButton;
  Colour swatch = 0;

  QSize fieldSize() const {
    QStyleOptionFrame option;
    option.initFrom(this);
    option.lineWidth = frameWidth();
    const QSize content(kLetters * fontMetrics().averageCharWidth(), fontMetrics().height());
    QSize size = style()->sizeFromContents(QStyle::CT_LineEdit, &option, content, this);
    return {size.width() + size.height(), std::max(size.height(), QPushButton::sizeHint().height())};
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QStylePainter painter(this);
    const int side = height();
    QStyleOptionFrame field;
    field.initFrom(this);
    field.rect = rect().adjusted(0, 0, -side - 1, 0);
    field.lineWidth = frameWidth();
    field.state |= QStyle::State_Sunken;
    painter.drawPrimitive(QStyle::PE_PanelLineEdit, field);
    const int border = field.lineWidth + 2;
    painter.fillRect(field.rect.adjusted(border, border, -border, -border),
                     isEnabled() ? qtColour(swatch, palette()) : palette().color(QPalette::Base));
    QStyleOptionButton button;
    initStyleOption(&button);
    button.rect = QRect(width() - side, 0, side, side);
    button.text = QStringLiteral("...");
    button.state.setFlag(QStyle::State_HasFocus, hasFocus());
    painter.drawControl(QStyle::CE_PushButton, button);
  }

 private:
  int frameWidth() const { return style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this); }
};

class ColourBinding final : public BindingOf<ColourField, ColourButton> {
 public:
  ColourBinding(ColourField& field, QWidget& parent, UserActs& acts) : BindingOf(field, parent) {
    view_.setAutoDefault(false);
    QObject::connect(&view_, &QPushButton::clicked, &view_,
                     [this, &acts] { acts.run([this] { control_.click(); }); });
  }

  QSize naturalSize() const override { return view_.fieldSize(); }

 protected:
  void followContent() override {
    view_.swatch = control_.swatch();
    view_.setAccessibleDescription(qt(control_.swatchText()));
    view_.update();
  }
};

}  // namespace

std::unique_ptr<Binding> bind(ColourField& field, QWidget& parent, UserActs& acts) {
  return std::make_unique<ColourBinding>(field, parent, acts);
}

}  // namespace vmgv

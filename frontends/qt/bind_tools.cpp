// Buttons of toolbars: those that act, and those that stay pressed.
#include <QCheckBox>
#include <QPushButton>
#include <QStyleOptionButton>
#include <QStylePainter>

#include "frontends/qt/binding.h"
#include "frontends/qt/comfort.h"
#include "support/forms/tool_picture.h"

namespace vmgv {
namespace {

using Picture = ToolButton::Picture;

constexpr float kTint = 0.3f;   // of the selection's colour, over a button that is on
constexpr qreal kFaint = 0.65;  // of the colour of a sign that nobody has set

QFont letterFont(const QFont& font, Picture picture) {
  QFont letter(font);
  letter.setBold(picture == Picture::Bold);
  letter.setItalic(picture == Picture::Italic);
  letter.setUnderline(picture == Picture::Underline);
  letter.setStrikeOut(picture == Picture::Strikeout);
  return letter;
}

// As large as a letter of the button's text would be high, in the middle of `place`.
void drawPicture(QPainter& painter, Picture picture, const QRect& place) {
  if (const char* letter = letterOf(picture)) {
    painter.setFont(letterFont(painter.font(), picture));
    painter.drawText(place, Qt::AlignCenter, QString::fromLatin1(letter));
    return;
  }
  const qreal side = painter.fontMetrics().height();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(QRectF(place).center() - QPointF(side / 2, side / 2));
  painter.scale(side / kToolSquare, side / kToolSquare);
  const QColor ink = painter.pen().color();
  for (const ToolStroke& stroke : strokesOf(picture)) {
    QPolygonF points;
    for (const auto& [x, y] : stroke.points) points << QPointF(x, y);
    painter.setPen(QPen(ink, kToolStroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(stroke.filled ? QBrush(ink) : QBrush(Qt::NoBrush));
    if (stroke.closed) {
      painter.drawPolygon(points);
    } else {
      painter.drawPolyline(points);
    }
  }
}

// Words come from the style, signs are drawn over them.
class PushTool final : public QPushButton {
 public:
  using QPushButton::QPushButton;
  Picture picture = Picture::None;

 protected:
  void paintEvent(QPaintEvent* event) override {
    QPushButton::paintEvent(event);
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::ButtonText));
    drawPicture(painter, picture, rect());
  }
};

// A check box to assistive technology, which knows a third state of those; to the eye a button that is
// pressed, raised, or where nobody has decided only a faint sign.
class ToggleTool final : public QCheckBox {
 public:
  using QCheckBox::QCheckBox;
  Picture picture = Picture::None;

 protected:
  bool hitButton(const QPoint& at) const override { return rect().contains(at); }
  void paintEvent(QPaintEvent*) override {
    QStylePainter painter(this);
    QStyleOptionButton option;
    option.initFrom(this);
    const bool notSet = checkState() == Qt::PartiallyChecked;
    option.state |= isDown() || isChecked() ? QStyle::State_Sunken : QStyle::State_Raised;
    if (checkState() == Qt::Checked) option.state |= QStyle::State_On;
    if (!notSet || isDown()) painter.drawPrimitive(QStyle::PE_PanelButtonCommand, option);
    if (checkState() == Qt::Checked) {
      QColor tint = palette().color(QPalette::Highlight);
      tint.setAlphaF(kTint);
      painter.fillRect(rect().adjusted(2, 2, -2, -2), tint);
    }
    if (hasFocus()) {  // an outline: the style's own mark would look like a button that is on
      painter.setPen(palette().color(QPalette::Highlight));
      painter.drawRect(rect().adjusted(2, 2, -3, -3));
    }
    painter.setPen(palette().color(QPalette::ButtonText));
    if (notSet) painter.setOpacity(kFaint);
    drawPicture(painter, picture, rect());
  }
};

template <class Widget>
class ToolBinding final : public BindingOf<ToolButton, Widget> {
 public:
  ToolBinding(ToolButton& button, QWidget& parent, UserActs& acts)
      : BindingOf<ToolButton, Widget>(button, parent) {
    QObject::connect(&this->view_, &QAbstractButton::clicked, &this->view_, [this, &acts] {
      acts.run([this] {
        this->control_.click();
        followContent();  // where the model did not take what the widget already shows
      });
    });
  }

  QSize naturalSize() const override {
    QPushButton like(this->view_.text());
    like.setFont(this->view_.font());
    like.setStyle(this->view_.style());
    const int height = like.sizeHint().height();
    const bool words = !this->view_.text().isEmpty();
    return {words ? comfortableWidth(like) : height, height};
  }

 protected:
  void followContent() override {
    const ToolButton& button = this->control_;
    this->view_.setText(plainCaption(button.caption()));
    this->view_.picture = button.picture;
    if constexpr (std::is_same_v<Widget, ToggleTool>) {
      const bool notSet = button.state() == ToolButton::State::NotSet;
      this->view_.setTristate(notSet);
      this->view_.setCheckState(notSet                                    ? Qt::PartiallyChecked
                                : button.state() == ToolButton::State::On ? Qt::Checked
                                                                          : Qt::Unchecked);
    } else {
      this->view_.setAutoDefault(false);
    }
  }
};

}  // namespace

std::unique_ptr<Binding> bind(ToolButton& button, QWidget& parent, UserActs& acts) {
  if (button.toggles) return std::make_unique<ToolBinding<ToggleTool>>(button, parent, acts);
  return std::make_unique<ToolBinding<PushTool>>(button, parent, acts);
}

}  // namespace vmgv

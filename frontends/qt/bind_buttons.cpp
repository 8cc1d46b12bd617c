// Push buttons, check boxes and option buttons.
#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <algorithm>

#include "frontends/qt/binding.h"
#include "frontends/qt/comfort.h"
#include "support/forms/form.h"

namespace vmgv {
namespace {

constexpr int kLeastLetters = 13;  // that fit on a push button
constexpr int kRoomLetters = 4;    // around the words

// Draws an arrow as the style does, so that it follows palette and scale.
class PushButton final : public QPushButton {
 public:
  using QPushButton::QPushButton;
  CommandButton::Picture picture = CommandButton::Picture::None;

 protected:
  void paintEvent(QPaintEvent* event) override {
    QPushButton::paintEvent(event);
    if (isDefault() && hasFocus()) paintFocus();
    if (picture == CommandButton::Picture::None) return;
    QStyleOption option;
    option.initFrom(this);
    const int side = fontMetrics().height();
    option.rect = QRect(0, 0, side, side);
    option.rect.moveCenter(rect().center());
    const bool up = picture == CommandButton::Picture::ArrowUp;
    QStylePainter(this).drawPrimitive(up ? QStyle::PE_IndicatorArrowUp : QStyle::PE_IndicatorArrowDown,
                                      option);
  }

 private:
  // Some styles mark the default button as they mark the focus.
  void paintFocus() {
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    QStyleOptionButton button;
    initStyleOption(&button);
    focus.rect = style()->subElementRect(QStyle::SE_PushButtonFocusRect, &button, this);
    QStylePainter(this).drawPrimitive(QStyle::PE_FrameFocusRect, focus);
  }
};

class PushBinding final : public BindingOf<CommandButton, PushButton> {
 public:
  PushBinding(CommandButton& button, QWidget& parent, UserActs& acts) : BindingOf(button, parent) {
    view_.setAutoDefault(false);
    QObject::connect(&view_, &QPushButton::clicked, &view_,
                     [this, &acts] { acts.run([this] { control_.click(); }); });
  }

  // Styles widen every button for a word; one that shows a sign is better as narrow as the sign.
  QSize naturalSize() const override {
    const QSize hint = view_.sizeHint();
    if (view_.picture != CommandButton::Picture::None) return {hint.height(), hint.height()};
    const QString caption = qt(control_.caption());
    if (std::any_of(caption.begin(), caption.end(), [](QChar c) { return c.isLetter(); })) {
      return {comfortableWidth(view_), hint.height()};
    }
    const int border = 2 * view_.style()->pixelMetric(QStyle::PM_ButtonMargin, nullptr, &view_);
    return {std::max(hint.height(), view_.fontMetrics().horizontalAdvance(caption) + border), hint.height()};
  }

 protected:
  void followContent() override {
    view_.setText(plainCaption(control_.caption()));
    view_.setDefault(control_.isDefault);
    view_.picture = control_.picture;
  }
};

// A check box or option button answers to clicks on its indicator; the widget may be wider than its text.
QPoint indicatorOf(const QAbstractButton& button, QStyle::SubElement element) {
  QStyleOptionButton option;
  option.initFrom(&button);
  return button.style()->subElementRect(element, &option, &button).center();
}

class CheckBinding final : public BindingOf<CheckBox, QCheckBox> {
 public:
  CheckBinding(CheckBox& box, QWidget& parent, UserActs& acts) : BindingOf(box, parent) {
    QObject::connect(&view_, &QCheckBox::clicked, &view_, [this, &acts] {
      acts.run([this] {
        control_.click();
        followContent();  // where the model did not take what the widget already shows
      });
    });
  }

  QPoint target() const override { return indicatorOf(view_, QStyle::SE_CheckBoxIndicator); }

 protected:
  void followContent() override {
    view_.setText(plainCaption(control_.caption()));
    view_.setTristate(control_.value() == 2);
    view_.setCheckState(control_.value() == 2   ? Qt::PartiallyChecked
                        : control_.value() == 1 ? Qt::Checked
                                                : Qt::Unchecked);
  }
};

class OptionBinding final : public BindingOf<OptionButton, QRadioButton> {
 public:
  OptionBinding(OptionButton& button, QWidget& parent, UserActs& acts) : BindingOf(button, parent) {
    QObject::connect(&view_, &QRadioButton::clicked, &view_,
                     [this, &acts] { acts.run([this] { control_.click(); }); });
  }

  QPoint target() const override { return indicatorOf(view_, QStyle::SE_RadioButtonIndicator); }

 protected:
  void followContent() override {
    view_.setText(plainCaption(control_.caption()));
    // Tab enters a group at its selected button. Qt sees to that only once the group has had the focus.
    view_.setFocusPolicy(control_.value() || !groupHasSelection() ? Qt::StrongFocus : Qt::ClickFocus);
    if (view_.isChecked() == control_.value()) return;
    // Qt keeps one button of a group checked; a group without a selection needs that rule lifted.
    view_.setAutoExclusive(control_.value());
    view_.setChecked(control_.value());
    view_.setAutoExclusive(true);
  }

 private:
  bool groupHasSelection() const {
    const auto& all = control_.form().controls();
    return std::any_of(all.begin(), all.end(), [this](const auto& other) {
      const auto* option = dynamic_cast<const OptionButton*>(other.get());
      return option && option->container() == control_.container() && option->value();
    });
  }
};

}  // namespace

int comfortableWidth(const QPushButton& button) {
  const QFontMetrics metrics = button.fontMetrics();
  const int letter = metrics.averageCharWidth();
  const int words = metrics.size(Qt::TextShowMnemonic, button.text()).width();
  return std::max({button.sizeHint().width(), kLeastLetters * letter, words + kRoomLetters * letter});
}

std::unique_ptr<Binding> bind(CommandButton& button, QWidget& parent, UserActs& acts) {
  return std::make_unique<PushBinding>(button, parent, acts);
}
std::unique_ptr<Binding> bind(CheckBox& box, QWidget& parent, UserActs& acts) {
  return std::make_unique<CheckBinding>(box, parent, acts);
}
std::unique_ptr<Binding> bind(OptionButton& button, QWidget& parent, UserActs& acts) {
  return std::make_unique<OptionBinding>(button, parent, acts);
}

}  // namespace vmgv

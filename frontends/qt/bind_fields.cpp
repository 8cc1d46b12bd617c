// Drop-down lists and text fields.
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QProxyStyle>
#include <QStyleOptionComboBox>
#include <QStyleOptionFrame>
#include <algorithm>
#include <utility>

#include "frontends/qt/binding.h"

namespace vmgv {
namespace {

constexpr int kVisibleEntries = 10;

// Drops lists down below their field. Some styles would cover the screen with a long list instead, and then
// ignore how many entries it should show.
class ListStyle final : public QProxyStyle {
 public:
  // One for all lists, over the application's style.
  static QStyle* shared() {
    static QPointer<ListStyle> style;
    if (!style) style = new ListStyle;
    return style;
  }

  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* data) const override {
    return hint == SH_ComboBox_Popup ? 0 : QProxyStyle::styleHint(hint, option, widget, data);
  }

 private:
  ListStyle() : QProxyStyle(QApplication::style()->name()) { setParent(qApp); }
};

class ComboBinding final : public BindingOf<ComboBox, QComboBox> {
 public:
  ComboBinding(ComboBox& box, QWidget& parent, UserActs& acts) : BindingOf(box, parent) {
    view_.setStyle(ListStyle::shared());
    view_.setMaxVisibleItems(kVisibleEntries);
    view_.setFocusPolicy(Qt::StrongFocus);  // a wheel turned in passing changes nothing
    view_.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    QObject::connect(&view_, &QComboBox::activated, &view_, [this, &acts](int entry) {
      acts.run([this, entry] {
        control_.choose(entry);
        followContent();
      });
    });
  }

  QSize naturalSize() const override {
    QStyleOptionComboBox option;
    option.initFrom(&view_);
    const QFontMetrics metrics = view_.fontMetrics();
    const QSize content(control_.columns * metrics.averageCharWidth(), metrics.height());
    const int width = view_.style()->sizeFromContents(QStyle::CT_ComboBox, &option, content, &view_).width();
    return {width, view_.sizeHint().height()};
  }

 protected:
  void followContent() override {
    if (shown_ != control_.items()) {
      shown_ = control_.items();
      view_.clear();
      QStringList entries;
      for (const std::string& entry : shown_) entries << qt(entry);
      view_.addItems(entries);
    }
    if (view_.currentIndex() != control_.listIndex()) view_.setCurrentIndex(control_.listIndex());
  }

 private:
  std::vector<std::string> shown_;
};

class TextBinding final : public BindingOf<TextBox, QLineEdit> {
 public:
  TextBinding(TextBox& box, QWidget& parent, UserActs& acts) : BindingOf(box, parent) {
    QObject::connect(&view_, &QLineEdit::textEdited, &view_, [this, &acts](const QString& text) {
      acts.run([this, &text] { control_.setText(utf8(text)); });
    });
  }

  QSize naturalSize() const override {
    QStyleOptionFrame option;
    option.initFrom(&view_);
    option.lineWidth = view_.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &view_);
    const QFontMetrics metrics = view_.fontMetrics();
    const QSize content(control_.columns * metrics.averageCharWidth(), metrics.height());
    const int width = view_.style()->sizeFromContents(QStyle::CT_LineEdit, &option, content, &view_).width();
    return {width, view_.sizeHint().height()};
  }

 protected:
  void followContent() override {
    const QString text = qt(control_.text());
    if (view_.text() != text) view_.setText(text);
    const std::pair wanted(control_.selStart(), control_.selLength());
    if (std::exchange(selected_, wanted) != wanted && wanted.second > 0) select(text, wanted);
  }

 private:
  // Characters beyond the basic plane count twice here.
  void select(const QString& text, std::pair<int, int> characters) {
    const QList<uint> all = text.toUcs4();
    const auto units = [&all](int from, int count) {
      return static_cast<int>(
          QString::fromUcs4(reinterpret_cast<const char32_t*>(all.data()) + from, count).size());
    };
    const int start = std::min(characters.first, static_cast<int>(all.size()));
    const int count = std::min(characters.second, static_cast<int>(all.size()) - start);
    view_.setSelection(units(0, start), units(start, count));
  }

  std::pair<int, int> selected_{0, 0};  // what code selected last
};

}  // namespace

std::unique_ptr<Binding> bind(ComboBox& box, QWidget& parent, UserActs& acts) {
  return std::make_unique<ComboBinding>(box, parent, acts);
}
std::unique_ptr<Binding> bind(TextBox& box, QWidget& parent, UserActs& acts) {
  return std::make_unique<TextBinding>(box, parent, acts);
}

}  // namespace vmgv

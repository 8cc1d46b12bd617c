#include "frontends/qt/form_window.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QTimer>
#include <algorithm>

#include "frontends/qt/keys.h"

namespace vmgv {
namespace {

Qt::CursorShape cursorShape(Pointer pointer) {
  switch (pointer) {
    case Pointer::Default: return Qt::ArrowCursor;
    case Pointer::Hourglass: return Qt::WaitCursor;
    case Pointer::ArrowHourglass: return Qt::BusyCursor;
  }
  return Qt::ArrowCursor;
}

// Enter and Esc are the form's alone, even where no button takes them.
bool isRouted(Key key) { return key == Key::Return || key == Key::Escape; }

// Of a group of option buttons the selected one is the stop.
bool selectedSibling(const Control& control) {
  const auto* option = dynamic_cast<const OptionButton*>(&control);
  const auto& all = control.form().controls();
  return option && !option->value() && std::any_of(all.begin(), all.end(), [option](const auto& other) {
           const auto* sibling = dynamic_cast<const OptionButton*>(other.get());
           return sibling && sibling->container() == option->container() && sibling->value();
         });
}

// A label beside a button does not name but describe it.
bool namesItself(const Control& control) { return dynamic_cast<const CommandButton*>(&control); }

}  // namespace

FormWindow::FormWindow(Form& form, WindowPort& window, UserActs& acts, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                          Qt::WindowCloseButtonHint),
      form_(form),
      window_(window),
      acts_(acts),
      units_(Units::ofScreen()) {
  setWindowModality(Qt::ApplicationModal);
  setAttribute(Qt::WA_QuitOnClose, false);
  setObjectName(qt(form.name()));
  if (form.resizable) setWindowFlag(Qt::WindowMaximizeButtonHint);
  for (const auto& control : form.controls()) {
    QWidget& around = control->container() ? binding(*control->container()).widget() : *this;
    auto bound = bindAny(*control, around, acts);
    bound->widget().installEventFilter(this);
    controls_[&bound->widget()] = control.get();
    bindings_[control.get()] = std::move(bound);
  }
  for (const auto& control : form.controls()) {
    const auto* label = dynamic_cast<const Label*>(control.get());
    if (label && label->buddy && !namesItself(*label->buddy)) {
      static_cast<QLabel&>(binding(*label).widget()).setBuddy(&binding(*label->buddy).widget());
    }
  }
  form.takeChanges();
  followForm();
  for (const auto& control : form.controls()) follow(*control);
  orderTabs();
}

// The widgets report nothing while they go.
FormWindow::~FormWindow() {
  for (const auto& [widget, control] : controls_) const_cast<QObject*>(widget)->removeEventFilter(this);
}

Control* FormWindow::focusedControl() const {
  const auto found = controls_.find(focusWidget());
  return found == controls_.end() ? nullptr : found->second;
}

void FormWindow::follow() {
  const Form::Changes changes = form_.takeChanges();
  if (changes.formChanged) followForm();
  for (const Control* control : changes.controls) follow(*control);
  focusWanted();
  if (!form_.isOpen()) {
    hide();
    loop_.quit();
  }
}

void FormWindow::follow(const Control& control) {
  binding(control).follow(units_);
  const auto* label = dynamic_cast<const Label*>(&control);
  if (label && label->buddy && namesItself(*label->buddy)) {
    binding(*label->buddy).widget().setAccessibleDescription(qt(label->caption()));
  }
}

void FormWindow::followForm() {
  setWindowTitle(qt(form_.caption()));
  setFont(qtFont(form_.font()));
  const QSize size = units_.pixels(form_.size());
  if (form_.resizable) {
    setMinimumSize(units_.pixels(form_.smallest()));
    if (!isMaximized()) resize(size);
  } else {
    setFixedSize(size);
  }
  if (form_.pointer() == Pointer::Default) {
    unsetCursor();
  } else {
    setCursor(cursorShape(form_.pointer()));
  }
}

void FormWindow::orderTabs() {
  QWidget* before = nullptr;
  for (const auto& control : form_.controls()) {
    if (!control->focusable()) continue;
    QWidget* widget = &binding(*control).widget();
    if (before) setTabOrder(before, widget);
    before = widget;
  }
}

// Where the form says, else at the first stop.
void FormWindow::focusFirst() {
  if (form_.initialFocus) return binding(*form_.initialFocus).widget().setFocus(Qt::TabFocusReason);
  for (const auto& control : form_.controls()) {
    QWidget& widget = binding(*control).widget();
    if (control->focusable() && widget.isEnabled() && !widget.isHidden() && !selectedSibling(*control)) {
      return widget.setFocus(Qt::TabFocusReason);
    }
  }
}

// Where the program wants it; all text of a field is selected then.
void FormWindow::focusWanted() {
  const Control* wanted = form_.takeWantedFocus();
  if (!wanted) return;
  QWidget& widget = binding(*wanted).widget();
  widget.setFocus(Qt::TabFocusReason);
  if (auto* field = qobject_cast<QLineEdit*>(&widget)) field->selectAll();
}

void FormWindow::run() {
  focusFirst();
  show();
  follow();
  if (form_.isOpen()) loop_.exec();
  hide();
}

void FormWindow::reject() { close(); }

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();  // the model says when the window goes
  acts_.run([this] {
    if (form_.isOpen()) form_.closeByUser();
  });
}

void FormWindow::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  if (!form_.resizable || event->size() == units_.pixels(form_.size())) return;
  acts_.run([&] { form_.resize(window_, units_.twips(event->size())); });
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
  const auto found = controls_.find(watched);
  if (found == controls_.end()) return QDialog::eventFilter(watched, event);
  Control& control = *found->second;
  switch (event->type()) {
    case QEvent::FocusIn: focusArrived(control); break;
    case QEvent::KeyPress: {
      if (qobject_cast<const QMenuBar*>(watched)) break;  // a menu's Enter and Esc are its own
      const auto& key = static_cast<const QKeyEvent&>(*event);
      if (pressKey(&control, key) || discards(control, key)) return true;
      break;
    }
    default: break;
  }
  return QDialog::eventFilter(watched, event);
}

void FormWindow::focusArrived(Control& control) {
  if (form_.activeControl() == &control) return;
  Control* left = form_.focusMoved(&control);
  if (left && left->onLostFocus) left_ = left;
  if (control.onGotFocus) reached_ = &control;
  if (!left_ && !reached_) return;
  QMetaObject::invokeMethod(this, &FormWindow::tellLeftSoon, Qt::QueuedConnection);
}

// What the handler may show would take the mouse away from a button that is held down.
void FormWindow::tellLeftSoon() {
  constexpr int kLookAgain = 20;  // ms
  if ((left_ || reached_) && QGuiApplication::mouseButtons() != Qt::NoButton) {
    QTimer::singleShot(kLookAgain, this, &FormWindow::tellLeftSoon);
  } else {
    tellLeft();
  }
}

void FormWindow::tellLeft() {
  Control* left = std::exchange(left_, nullptr);
  Control* reached = std::exchange(reached_, nullptr);
  if ((!left && !reached) || !form_.isOpen()) return;
  acts_.run([left, reached] {
    if (left) left->loseFocus();
    if (reached) reached->gainFocus();
  });
}

// Keys that only move, and those that the form is asked about, have no character.
bool FormWindow::discards(Control& control, const QKeyEvent& event) {
  const auto* box = dynamic_cast<TextBox*>(&control);
  if (!box || event.key() == Qt::Key_Delete) return false;
  const std::optional<Key> key = formKey(event);
  if (key == Key::Tab) return false;
  char32_t character = key == Key::Backspace ? U'\b' : 0;
  if (character == 0 && !event.text().isEmpty()) character = event.text().toUcs4().constFirst();
  bool discarded = false;
  if (character != 0) acts_.run([&] { discarded = box->discards(character); });
  return discarded;
}

bool FormWindow::pressKey(Control* focused, const QKeyEvent& event) {
  const std::optional<Key> key = formKey(event);
  if (!key) return false;
  bool used = false;
  acts_.run([&] { used = form_.pressKey(focused, *key, shiftState(event.modifiers())); });
  return used || isRouted(*key);
}

// What no control was asked about: without a focus the form itself gets the keys. Qt's own Enter and Esc
// would click and close behind the model's back.
void FormWindow::keyPressEvent(QKeyEvent* event) {
  if (!focusedControl() && pressKey(nullptr, *event)) return;
  const std::optional<Key> key = formKey(*event);
  if (!key || !isRouted(*key)) QDialog::keyPressEvent(event);
}

}  // namespace vmgv

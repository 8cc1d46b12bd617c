// What the user of a Qt desktop does and sees.
#include <QAbstractItemView>
#include <QApplication>
#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <filesystem>

#include "frontends/qt/colour.h"
#include "frontends/qt/form_window.h"
#include "frontends/qt/gestures.h"
#include "frontends/qt/keys.h"
#include "frontends/qt/qt_desktop.h"
#include "support/automation/error.h"
#include "support/text/utf8.h"

namespace vmgv {
namespace {

// What Qt asks on its own, as whether a file is to be replaced, the user agrees to.
void agree() {
  auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
  if (!question) return;
  QAbstractButton* yes = question->button(QMessageBox::Yes);
  (yes ? yes : question->buttons().constFirst())->click();
}

void answerPrinting(QDialog& dialog, MessageResult result) {
  QTimer agreeing;
  QObject::connect(&agreeing, &QTimer::timeout, &agree);
  agreeing.start(0);
  const auto role = result == MessageResult::Ok ? QDialogButtonBox::AcceptRole : QDialogButtonBox::RejectRole;
  for (auto* box : dialog.findChildren<QDialogButtonBox*>()) {
    for (QAbstractButton* button : box->buttons()) {
      if (box->buttonRole(button) == role) return gestures::click(*button, button->rect().center());
    }
  }
  throw CannotDo("this dialog can only be answered by a person");
}

QPoint centre(const QWidget& widget) { return widget.rect().center(); }

void requireFocusable(const Control& control) {
  if (!control.focusable()) throw CannotDo(control.address() + " does not take the focus");
}

// A list that is still dropped down would get the events of what comes next.
void closePopups() {
  if (QWidget* popup = QApplication::activePopupWidget()) popup->close();
}

// Without a window manager, and right after it was shown, no window is active; a user sees and uses one that
// is.
void activate(QWidget& window) {
  if (!window.isActiveWindow()) QApplication::setActiveWindow(&window);
}

// What the user types on a keyboard with Latin letters.
QString textOf(Key key, int shift) {
  const auto code = static_cast<int>(key);
  if (shift & (kControl | kAlt)) return {};
  if (key == Key::Space || (code >= '0' && code <= '9')) return QChar(code);
  if (code >= 'A' && code <= 'Z') return QChar(shift & kShift ? code : code + 32);
  return {};
}

// From the end that is nearer.
void walkTo(QWidget& list, int entry, int count) {
  const bool down = entry < count / 2;
  gestures::press(list, down ? Qt::Key_Home : Qt::Key_End);
  for (int steps = down ? entry : count - 1 - entry; steps > 0; --steps) {
    gestures::press(list, down ? Qt::Key_Down : Qt::Key_Up);
  }
}

}  // namespace

// What is over while its program still works takes nothing any more.
Form* QtDesktop::form() {
  return topIsOver() || !shown_.back().window ? nullptr : &shown_.back().window->form();
}

const Box* QtDesktop::box() { return topIsOver() || !shown_.back().box ? nullptr : &shown_.back().box->box; }

FormWindow& QtDesktop::topWindow() {
  if (form()) return *shown_.back().window;
  throw CannotDo(box() ? "a box is on top" : "no dialog is shown");
}

QtDesktop::OpenBox& QtDesktop::topBox(Box::Kind kind) {
  if (!box() || box()->kind != kind) throw CannotDo(std::string("no ") + nameOf(kind) + " is on top");
  return *shown_.back().box;
}

Binding& QtDesktop::bindingOnTop(Control& control) {
  FormWindow& window = topWindow();
  if (&window.form() != &control.form()) throw CannotDo(control.form().name() + " is not on top");
  requireUsable(control);
  followAll();
  closePopups();
  activate(window);
  return window.binding(control);
}

void QtDesktop::click(Control& control) {
  const Binding& binding = bindingOnTop(control);
  requireClickable(control);
  gestures::click(binding.widget(), binding.target());
}

void QtDesktop::doubleClick(Control& control) {
  const Binding& binding = bindingOnTop(control);
  requireFocusable(control);
  gestures::doubleClick(binding.widget(), binding.target());
}

void QtDesktop::doubleClick(Control& list, int entry) {
  requireEntry(list, entry);
  auto* view = qobject_cast<QAbstractItemView*>(&bindingOnTop(list).widget());
  if (!view) throw CannotDo(list.address() + " is no open list");
  const QModelIndex index = view->model()->index(entry, 0);
  view->scrollTo(index);
  gestures::doubleClick(*view->viewport(), view->visualRect(index).center());
}

// A closed list is dropped down by the keyboard; the user walks to the entry and takes it.
void QtDesktop::choose(Control& control, int entry) {
  focus(control);
  const ListControl& list = requireEntry(control, entry);
  QWidget& widget = bindingOnTop(control).widget();
  if (auto* combo = qobject_cast<QComboBox*>(&widget)) {
    gestures::press(*combo, Qt::Key_Down, Qt::AltModifier);
    walkTo(*combo->view(), entry, list.listCount());
    gestures::press(*combo->view(), Qt::Key_Return);
  } else {
    gestures::press(widget, Qt::Key_Home);
    walkTo(widget, entry, list.listCount());
  }
}

void QtDesktop::enter(Control& control, const std::string& text) {
  focus(control);
  auto* field = qobject_cast<QLineEdit*>(&bindingOnTop(control).widget());
  if (!field) throw CannotDo(control.address() + " is no field");
  if (text.find_first_of("\r\n") != std::string::npos) throw CannotDo(control.address() + " takes one line");
  if (!isUtf8(text)) throw CannotDo("the text is not UTF-8");
  gestures::press(*field, Qt::Key_Home);
  gestures::press(*field, Qt::Key_End, Qt::ShiftModifier);
  if (text.empty()) gestures::press(*field, Qt::Key_Delete);
  gestures::type(*field, qt(text));
  if (form() == &control.form()) gestures::press(*field, Qt::Key_Tab);
}

void QtDesktop::press(Control& control, Key key, int shift) {
  focus(control);
  const bool back = key == Key::Tab && (shift & kShift);
  gestures::press(bindingOnTop(control).widget(), back ? Qt::Key_Backtab : qtKey(key), qtModifiers(shift),
                  textOf(key, shift));
}

// By the Tab key, as far as it leads; the members of a group of option buttons are no stops of their own.
void QtDesktop::focus(Control& control) {
  QWidget& widget = bindingOnTop(control).widget();
  requireFocusable(control);
  FormWindow& window = topWindow();
  for (std::size_t stops = window.form().controls().size(); stops > 0 && window.focusWidget() != &widget;
       --stops) {
    QWidget* from = window.focusWidget();
    gestures::press(from ? *from : window, Qt::Key_Tab);
  }
  if (window.focusWidget() != &widget) widget.setFocus(Qt::TabFocusReason);
}

Control* QtDesktop::focused() {
  if (!form()) return nullptr;
  followAll();
  return topWindow().focusedControl();
}

void QtDesktop::resize(Size size) {
  FormWindow& window = topWindow();
  if (size.width < 1 || size.height < 1) throw CannotDo("a window has a width and a height");
  if (!window.form().resizable) throw CannotDo("the window of " + window.form().name() + " has a fixed size");
  window.form().resize(*this, size);
  followAll();
}

void QtDesktop::closeWindow() {
  FormWindow& window = topWindow();
  closePopups();
  window.close();
}

void QtDesktop::answer(MessageResult result) {
  if (box() && (box()->kind == Box::Kind::PageSetup || box()->kind == Box::Kind::Print)) {
    return answerPrinting(topBox(box()->kind).dialog, result);
  }
  const OpenBox& open = topBox(Box::Kind::Message);
  for (const auto& [answer, button] : open.buttons) {
    if (answer == result) return gestures::click(*button, centre(*button));
  }
  throw CannotDo(std::string("the message has ") +
                 (open.box.style == MessageStyle::Question ? "Yes and No" : "OK") + " only");
}

void QtDesktop::pick(const std::optional<std::string>& path) {
  QDialog& picker = topBox(Box::Kind::File).dialog;
  std::error_code failed;
  if (path && !std::filesystem::is_regular_file(*path, failed)) throw CannotDo("there is no file " + *path);
  auto* buttons = picker.findChild<QDialogButtonBox*>();
  auto* name = picker.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
  if (!buttons || !name) throw CannotDo("this file picker can only be answered by a person");
  if (path) {
    gestures::press(*name, Qt::Key_A, Qt::ControlModifier);
    gestures::insert(*name, qt(std::filesystem::absolute(*path).string()));
    closePopups();  // the names that complete it
  }
  QPushButton* button = buttons->button(path ? QDialogButtonBox::Open : QDialogButtonBox::Cancel);
  gestures::click(*button, centre(*button));
}

void QtDesktop::chooseColour(const std::optional<Colour>& colour) {
  auto& picker = static_cast<QColorDialog&>(topBox(Box::Kind::Palette).dialog);
  auto* buttons = picker.findChild<QDialogButtonBox*>();
  if (!buttons) throw CannotDo("this colour picker can only be answered by a person");
  if (colour) picker.setCurrentColor(qtColour(*colour, picker.palette()));
  QPushButton* button = buttons->button(colour ? QDialogButtonBox::Ok : QDialogButtonBox::Cancel);
  gestures::click(*button, centre(*button));
}

void QtDesktop::picture(const std::string& path) {
  followAll();
  QWidget* shown = owner();
  if (!shown) throw CannotDo("there is no window to take a picture of");
  activate(*shown);
  QCoreApplication::sendPostedEvents();
  if (!shown->grab().save(qt(path), "PNG")) {
    throw Error(ErrorNumber::PathAccess, "The picture " + path + " cannot be written");
  }
}

}  // namespace vmgv

// Modal life: forms over forms, boxes over forms, and the message loop in between.
#include "frontends/qt/qt_desktop.h"

#include <QAbstractButton>
#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <algorithm>

#include "frontends/qt/box_texts.h"
#include "frontends/qt/colour.h"
#include "frontends/qt/form_window.h"
#include "support/automation/error.h"
#include "support/frame/services.h"

namespace vmgv {
namespace {

constexpr int kAlreadyShown = 400;
constexpr std::chrono::milliseconds kPumpInterval{50};

QMessageBox::Icon icon(MessageStyle style) {
  switch (style) {
    case MessageStyle::Critical: return QMessageBox::Critical;
    case MessageStyle::Question: return QMessageBox::Question;
    case MessageStyle::Information: return QMessageBox::Information;
  }
  return QMessageBox::NoIcon;
}

// "Excel Files (*.xls)" and "*.xls;*.xlsx" as Qt reads a filter: the patterns that count are those in
// brackets.
QString nameFilter(const FileFilter& filter) {
  const QString name = qt(filter.name).section(QLatin1String(" ("), 0, 0);
  return QStringLiteral("%1 (%2)").arg(name, qt(filter.patterns).replace(u';', u' '));
}

}  // namespace

class QtDesktop::OnTop {
 public:
  // `giveUp` ends what is shown when the handler says that nobody will act any more.
  OnTop(QtDesktop& desktop, Shown shown, std::function<void()> giveUp)
      : desktop_(desktop), pumping_(std::exchange(desktop.pumping_, false)) {
    desktop.shown_.push_back(shown);
    if (!desktop.idle_) return;
    // A timer of its own for each loop: a timer does not fire inside its own slot, where the nested loop of a
    // dialog that a step opened runs.
    QObject::connect(&idle_, &QTimer::timeout, &idle_, [this, giveUp = std::move(giveUp)] {
      if (desktop_.pumping_ || desktop_.topIsOver()) return;  // the program is at work
      desktop_.run([&] {
        if (!desktop_.idle_ || !desktop_.idle_->waiting()) giveUp();
      });
    });
    idle_.start(0);
  }
  OnTop(const OnTop&) = delete;
  OnTop& operator=(const OnTop&) = delete;
  ~OnTop() {
    desktop_.shown_.pop_back();
    desktop_.pumping_ = pumping_;
  }

 private:
  QtDesktop& desktop_;
  bool pumping_;
  QTimer idle_;
};

void QtDesktop::run(const std::function<void()>& act) noexcept {
  const auto tell = [this](const char* what) noexcept {
    try {
      messageBox(what, MessageStyle::Critical, {});
    } catch (const std::exception& error) {
      qCritical("%s", error.what());
    }
  };
  try {
    if (!shown_.empty() && shown_.back().window) shown_.back().window->tellLeft();
    act();
  } catch (const std::exception& error) {
    tell(error.what());
  } catch (...) {
    tell("An unknown error has occurred!");
  }
  followAll();
}

// Closed or answered, but its loop has not ended yet.
bool QtDesktop::topIsOver() const {
  if (shown_.empty()) return true;
  const Shown& top = shown_.back();
  return top.window ? !top.window->form().isOpen() : !top.box->dialog.isVisible();
}

void QtDesktop::tellUser(const QString& text) { messageBox(utf8(text), MessageStyle::Information, {}); }

void QtDesktop::followAll() {
  for (const Shown& shown : shown_) {
    if (shown.window) shown.window->follow();
  }
}

QWidget* QtDesktop::owner() const {
  if (!shown_.empty()) {
    const Shown& top = shown_.back();
    return top.window ? static_cast<QWidget*>(top.window) : &top.box->dialog;
  }
  return QApplication::activeWindow() ? QApplication::activeWindow() : mainWindow_.data();
}

void QtDesktop::showModal(Form& form) {
  const auto same = [&form](const Shown& shown) { return shown.window && &shown.window->form() == &form; };
  if (std::any_of(shown_.begin(), shown_.end(), same)) {
    throw Error(kAlreadyShown, form.name() + " is already shown");
  }
  FormWindow window(form, *this, *this, owner());
  bool refused = false;
  {
    const OnTop place(*this, {&window, nullptr}, [&] {
      window.close();
      refused = form.isOpen();
      form.close();
    });
    window.run();
  }
  form.close();  // where the application ended under it
  if (refused) throw Error(ErrorNumber::InvalidCall, form.name() + " does not let itself be closed");
}

MessageResult QtDesktop::messageBox(const std::string& text, MessageStyle style, const std::string& title) {
  followAll();
  QMessageBox dialog(owner());
  dialog.setIcon(icon(style));
  dialog.setWindowTitle(qt(title.empty() ? kApplicationTitle : title));
  dialog.setTextFormat(Qt::PlainText);
  dialog.setText(qt(text));
  OpenBox open{{Box::Kind::Message, title, text, style, {}}, dialog};
  const auto add = [&](MessageResult result, QMessageBox::ButtonRole role) {
    open.buttons.emplace_back(result, dialog.addButton(buttonText(result), role));
  };
  if (style == MessageStyle::Question) {
    add(MessageResult::Yes, QMessageBox::YesRole);
    add(MessageResult::No, QMessageBox::NoRole);
  } else {
    add(MessageResult::Ok, QMessageBox::AcceptRole);
  }
  dialog.setDefaultButton(static_cast<QPushButton*>(open.buttons.front().second));
  dialog.setEscapeButton(open.buttons.back().second);

  boxes_.push_back(open.box);
  const OnTop place(*this, {nullptr, &open}, [&] { dialog.reject(); });
  dialog.exec();
  for (const auto& [result, button] : open.buttons) {
    if (button == dialog.clickedButton()) return result;
  }
  return open.buttons.back().first;
}

std::optional<std::string> QtDesktop::pickFile(const FileRequest& request) {
  followAll();
  QFileDialog dialog(owner(), qt(request.title));
  // A script can only answer a picker whose parts are Qt's.
  dialog.setOption(QFileDialog::DontUseNativeDialog, idle_ != nullptr);
  dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.setDefaultSuffix(qt(request.defaultExtension));
  QStringList filters;
  for (const FileFilter& filter : request.filters) filters << nameFilter(filter);
  if (!filters.isEmpty()) dialog.setNameFilters(filters);
  nameParts(dialog);

  OpenBox open{{Box::Kind::File, request.title, {}, {}, request}, dialog};
  boxes_.push_back(open.box);
  const OnTop place(*this, {nullptr, &open}, [&] { dialog.reject(); });
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  return utf8(dialog.selectedFiles().constFirst());
}

std::optional<Colour> QtDesktop::pickColour(Colour initial) {
  followAll();
  QColorDialog dialog(qtColour(initial, QApplication::palette()), owner());
  dialog.setOption(QColorDialog::DontUseNativeDialog, idle_ != nullptr);
  nameParts(dialog);
  OpenBox open{{.kind = Box::Kind::Palette, .colour = initial}, dialog};
  boxes_.push_back(open.box);
  const OnTop place(*this, {nullptr, &open}, [&] { dialog.reject(); });
  if (dialog.exec() != QDialog::Accepted) return {};
  return formColour(dialog.selectedColor());
}

bool QtDesktop::takes(QDialog& dialog, Box::Kind kind) {
  followAll();
  OpenBox open{{.kind = kind}, dialog};
  boxes_.push_back(open.box);
  const OnTop place(*this, {nullptr, &open}, [&] { dialog.reject(); });
  return dialog.exec() == QDialog::Accepted;
}

void QtDesktop::doEvents() {
  if (idle_) idle_->yielding();
  using Clock = std::chrono::steady_clock;
  if (pumping_ || Clock::now() - lastPump_ < kPumpInterval) return;
  pumping_ = true;
  followAll();
  QCoreApplication::processEvents();
  pumping_ = false;
  lastPump_ = Clock::now();  // counted from the end, so that slow painting does not eat up the work's time
}

// Visitors may change controls; a probe only reads its control.
std::unique_ptr<Binding> QtDesktop::probe(const Control& control, QWidget& parent) {
  auto binding = bindAny(const_cast<Control&>(control), parent, *this);
  binding->widget().ensurePolished();
  binding->follow(Units::ofScreen());
  return binding;
}

Size QtDesktop::naturalSize(const Control& control) {
  QWidget parent;
  return Units::ofScreen().twips(probe(control, parent)->naturalSize());
}

Insets QtDesktop::insets(const Container& container) {
  QWidget parent;
  return Units::ofScreen().twips(probe(container, parent)->insets());
}

Size QtDesktop::workArea() {
  const QWidget* over = owner();
  const QScreen* screen = over ? over->screen() : QGuiApplication::primaryScreen();
  return Units::ofScreen().twips(screen->availableSize());
}

Size QtDesktop::pixel() const {
  const int twips = Units::ofScreen().twipsPerPixel();
  return {twips, twips};
}

}  // namespace vmgv

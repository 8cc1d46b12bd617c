#include "hosts/gridhost/main_window.h"

#include <QApplication>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QStatusBar>
#include <QStyle>

#include "frontends/qt/comfort.h"
#include "frontends/qt/units.h"
#include "hosts/gridhost/entries.h"
#include "support/strings/string_module.h"

namespace vmgv {
namespace {

constexpr QSize kFirstSize(1100, 680);
constexpr int kScreenShare = 90;  // percent of the screen at most

bool inEnglish() { return processStringService().Language() == kEnglish; }

QString textOf(Text text) {
  static MlStringModule strings;
  return qt(strings.GetResString(text));
}

}  // namespace

MainWindow::MainWindow(Session& session, QtDesktop& desktop)
    : session_(session), desktop_(desktop), grid_(new GridView) {
  const QString table = QFileInfo(qt(session.dataName())).fileName();
  setWindowTitle(QStringLiteral("%1 – vmGridViews").arg(table));
  grid_->setEngine(session.engine());
  grid_->setAccessibleName(table);

  auto* central = new QWidget(this);
  auto* layout = new QHBoxLayout(central);
  layout->addWidget(grid_, 1);
  layout->addWidget(makePanel());
  setCentralWidget(central);

  const int margin = style()->pixelMetric(QStyle::PM_LayoutLeftMargin);
  statusBar()->setContentsMargins(margin, 0, margin, 0);
  statusBar()->addPermanentWidget(new QLabel(rowsText()));
  showProblems();
  // Without a display there is no screen that a picture would not fit.
  const bool shown = QGuiApplication::platformName() != QLatin1String("offscreen");
  resize(shown ? kFirstSize.boundedTo(screen()->availableSize() * kScreenShare / 100) : kFirstSize);
  grid_->setFocus();
}

// A facet whose dialog this version lacks has its button, greyed.
QWidget* MainWindow::makePanel() {
  auto* panel = new QWidget;
  auto* layout = new QVBoxLayout(panel);
  layout->setContentsMargins(0, 0, 0, 0);
  for (const Entry& entry : kEntries) {
    auto* button = new QPushButton(plainCaption(utf8(textOf(entry.caption))));
    button->setToolTip(textOf(entry.line));
    button->setEnabled(session_.offers(entry.facet));
    connect(button, &QPushButton::clicked, this, [this, method = entry.method] {
      desktop_.run([&] { session_.control().call(Member(method)); });
    });
    button->setMinimumWidth(comfortableWidth(*button));
    layout->addWidget(button);
  }
  layout->addStretch();
  return panel;
}

QString MainWindow::rowsText() const {
  const QLocale locale(inEnglish() ? QLocale::English : QLocale::Greek);
  const QString rows = inEnglish() ? QStringLiteral("%1 rows") : QStringLiteral("%1 γραμμές");
  return rows.arg(locale.toString(static_cast<qulonglong>(session_.engine()->records())));
}

void MainWindow::showProblems() {
  const Problems& problems = session_.problems();
  if (problems.empty()) return;
  const std::size_t others = problems.messages().size() - 1 + problems.more();
  QString text = qt(problems.messages().front());
  if (others > 0) {
    text += (inEnglish() ? QStringLiteral(" (and %1 more)") : QStringLiteral(" (και άλλα %1)")).arg(others);
  }
  QStringList all;
  for (const std::string& message : problems.messages()) all << qt(message).toHtmlEscaped();
  auto* label = new QLabel;
  label->setTextFormat(Qt::PlainText);
  label->setText(text);
  label->setToolTip(all.join(QLatin1String("<br>")));
  statusBar()->addWidget(label, 1);
}

void MainWindow::tell(const QString& text) { statusBar()->showMessage(text); }

}  // namespace vmgv

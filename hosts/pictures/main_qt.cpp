// pictures DATA.csv FOLDER [SUFFIX] [--dark]: pictures of every dialog on Qt.
#include <QApplication>
#include <QPalette>
#include <QStyleFactory>
#include <cstdio>

#include "frontends/qt/qt_printing.h"
#include "hosts/pictures/photographer.h"

namespace vmgv {
namespace {

QPalette darkPalette() {
  QPalette dark(QColor(53, 53, 53));
  dark.setColor(QPalette::Base, QColor(35, 35, 35));
  dark.setColor(QPalette::AlternateBase, QColor(45, 45, 45));
  dark.setColor(QPalette::Highlight, QColor(42, 130, 218));
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    dark.setColor(QPalette::Disabled, role, QColor(130, 130, 130));
  }
  return dark;
}

}  // namespace
}  // namespace vmgv

int main(int count, char** arguments) {
  QApplication application(count, arguments);
  QStringList words = QApplication::arguments().mid(1);
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  if (words.removeAll("--dark") > 0) QApplication::setPalette(vmgv::darkPalette());
  if (words.size() < 2 || words.size() > 3) {
    std::fprintf(stderr, "usage: pictures DATA.csv FOLDER [SUFFIX] [--dark]\n");
    return 2;
  }
  QApplication::setFont(QFont("DejaVu Sans", 9));  // the same picture on every machine
  try {
    vmgv::QtDesktop desktop;
    vmgv::QtPrinting printing(desktop);
    vmgv::photographAll({desktop, desktop, desktop, printing},
                        {words[0].toStdString(), words[1].toStdString(), words.value(2).toStdString()});
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "pictures: %s\n", error.what());
    return 1;
  }
}

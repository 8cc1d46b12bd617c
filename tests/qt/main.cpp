// Runs the tests inside a Qt application without a screen.
#include <gtest/gtest.h>

#include <QApplication>
#include <QFont>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
  return RUN_ALL_TESTS();
}

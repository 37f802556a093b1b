// Test main for headless tests: a core application, a fixed default locale.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QLocale>

int main(int argc, char** argv) {
  QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
  QCoreApplication app(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}

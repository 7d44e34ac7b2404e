// Runs tests that need widgets, on a screen in memory unless the environment names another one.

#include <gmock/gmock.h>

#include <QApplication>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <iostream>

namespace {

// A screen in memory warns of everything that only a real one can do.
void print_message(QtMsgType, const QMessageLogContext&, const QString& text) {
  if (!text.startsWith(QStringLiteral("This plugin does not support"))) {
    std::cerr << text.toStdString() << '\n';
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleMock(&argc, argv);
  if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();
  qInstallMessageHandler(print_message);
  const QApplication application(argc, argv);
  // What the window remembers is the tests' own.
  QStandardPaths::setTestModeEnabled(true);
  const QTemporaryDir settings;
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
  QCoreApplication::setOrganizationName(QStringLiteral("AluFrame tests"));
  return RUN_ALL_TESTS();
}

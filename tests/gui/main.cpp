// Runs tests that need widgets, on a screen in memory unless the environment names another one.

#include <gmock/gmock.h>

#include <QApplication>
#include <QSettings>
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
  // What the window remembers and keeps is this run's own: others run beside it.
  const QTemporaryDir own;
  for (const char* folder : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"}) {
    qputenv(folder, own.path().toLocal8Bit());
  }
  const QApplication application(argc, argv);
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, own.path());
  QCoreApplication::setOrganizationName(QStringLiteral("AluFrame tests"));
  return RUN_ALL_TESTS();
}

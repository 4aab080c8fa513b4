#include <gtest/gtest.h>

#include <QApplication>
#include <iostream>

namespace {

// Windows that are shown nowhere can't be raised and the like, and say so each time.
void tell(QtMsgType, const QMessageLogContext&, const QString& text) {
  if (!text.startsWith(QLatin1String("This plugin does not support")))
    std::cerr << text.toStdString() << "\n";
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler(tell);
  // The same widgets on every machine.
  QApplication::setStyle(QStringLiteral("Fusion"));
  QApplication::setCursorFlashTime(0);
  const QApplication application(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}

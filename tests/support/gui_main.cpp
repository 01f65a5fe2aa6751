#include "support/private_folders.h"

#include <QApplication>
#include <QStyleFactory>

#include <gmock/gmock.h>

int main(int argc, char** argv) {
    const tessel::PrivateFolders folders;
    // Started by hand, the windows do not jump about on the desktop either.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    testing::InitGoogleMock(&argc, argv);
    const QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    return RUN_ALL_TESTS();
}

#include "ui/kit/Kit.h"

#include <QGuiApplication>
#include <QQuickWindow>

#include <gtest/gtest.h>

int main(int argc, char **argv) {
    // Neither a display nor a graphics card is needed.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QGuiApplication application(argc, argv);
    palomet::Kit::registerFonts(QStringLiteral(PALOMET_BINARY_DIR "/resources"));
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

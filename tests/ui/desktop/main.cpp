#include "tests/ui/desktop/XServer.h"
#include "ui/UiEngine.h"
#include "ui/localization/Localization.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char **argv) {
    const palomet::test::XServer server("2560x1024x24");
    qputenv("QT_QPA_PLATFORM", "xcb");
    palomet::UiEngine::chooseRenderer();
    const QApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    palomet::Localization::load(QStringLiteral(PALOMET_SOURCE_DIR "/resources"), {QStringLiteral("en")});
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

#include "localization/Localization.h"
#include "tests/ui/desktop/XServer.h"
#include "ui/UiEngine.h"

#include <QApplication>

#include <gtest/gtest.h>

// The desktop is scaled as $PALOMET_TEST_SCALE says: 1.25 for instance, or "mixed", each of two screens in its own way.
int main(int argc, char **argv) {
    const auto scale = qgetenv("PALOMET_TEST_SCALE");
    const palomet::test::XServer server(scale.isEmpty() ? "2560x1024x24" : "5120x2048x24");
    if (scale == "mixed")
        qputenv("QT_SCREEN_SCALE_FACTORS", "first=1.5;second=2");
    else if (!scale.isEmpty())
        palomet::test::XServer::setScale(scale.toDouble());
    qputenv("QT_QPA_PLATFORM", "xcb");
    palomet::UiEngine::chooseRenderer();
    const QApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    palomet::Localization::load(QStringLiteral(PALOMET_SOURCE_DIR "/resources"), {QStringLiteral("en")});
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

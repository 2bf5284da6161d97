#include "localization/Localization.h"
#include "ui/UiEngine.h"
#include "ui/kit/Kit.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char **argv) {
    // Neither a display nor a graphics card is needed.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    palomet::UiEngine::chooseRenderer();
    const QApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    palomet::Kit::registerFonts(QStringLiteral(PALOMET_BINARY_DIR "/resources"));
    palomet::Localization::load(QStringLiteral(PALOMET_SOURCE_DIR "/resources"), {QStringLiteral("en")});
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

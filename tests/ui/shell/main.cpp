#include "localization/Localization.h"
#include "ui/UiEngine.h"
#include "ui/kit/Kit.h"

#include <QApplication>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

int main(int argc, char **argv) {
    // Neither a display nor a graphics card is needed.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    palomet::UiEngine::chooseRenderer();
    const QApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    palomet::kit::registerFonts(u"" PALOMET_BINARY_DIR "/resources"_s);
    palomet::localization::load(u"" PALOMET_SOURCE_DIR "/resources"_s, {u"en"_s});
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

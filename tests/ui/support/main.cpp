#include "tests/support/noScreen.h"
#include "ui/kit/Kit.h"

#include <QGuiApplication>
#include <QQuickWindow>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

int main(int argc, char **argv) {
    palomet::test::useNoScreen();
    QGuiApplication application(argc, argv);
    palomet::kit::registerFonts(u"" PALOMET_BINARY_DIR "/resources"_s);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

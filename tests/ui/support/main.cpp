#include "tests/support/noScreen.h"
#include "ui/kit/Kit.h"

#include <QGuiApplication>
#include <QQuickWindow>

#include <gtest/gtest.h>

int main(int argc, char **argv) {
    palomet::test::useNoScreen();
    QGuiApplication application(argc, argv);
    palomet::Kit::registerFonts(QStringLiteral(PALOMET_BINARY_DIR "/resources"));
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

#include "localization/Localization.h"
#include "tests/support/noScreen.h"
#include "tests/ui/support/UiTest.h"
#include "ui/kit/Kit.h"

#include <QApplication>
#include <QQuickWindow>

#include <gtest/gtest.h>

int main(int argc, char **argv) {
    palomet::test::useNoScreen();
    QApplication application(argc, argv);
    const auto resources = QStringLiteral(PALOMET_BINARY_DIR "/resources");
    palomet::Kit::registerFonts(resources);
    palomet::Localization::load(resources, {QStringLiteral("en")});
    palomet::Format::load(palomet::test::regionOf(QStringLiteral("UTC")));
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

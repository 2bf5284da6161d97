#include "localization/Localization.h"
#include "tests/support/noScreen.h"
#include "tests/ui/support/UiTest.h"
#include "ui/kit/Kit.h"

#include <QApplication>
#include <QQuickWindow>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

int main(int argc, char **argv) {
    palomet::test::useNoScreen();
    QApplication application(argc, argv);
    const auto resources = u"" PALOMET_BINARY_DIR "/resources"_s;
    palomet::kit::registerFonts(resources);
    palomet::localization::load(resources, {u"en"_s});
    palomet::format::load(palomet::test::regionOf(u"UTC"_s));
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

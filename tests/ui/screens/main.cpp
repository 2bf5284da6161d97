#include "model/Format.h"
#include "ui/kit/Kit.h"
#include "ui/localization/Localization.h"

#include <QApplication>
#include <QQuickWindow>

#include <gtest/gtest.h>

int main(int argc, char **argv) {
    // Neither a display nor a graphics card is needed.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QApplication application(argc, argv);
    const auto resources = QStringLiteral(PALOMET_BINARY_DIR "/resources");
    palomet::Kit::registerFonts(resources);
    palomet::Localization::load(resources, {QStringLiteral("en")});
    palomet::Format::load(
        {.numbers = QStringLiteral("en"),
         .dates = QStringLiteral("en"),
         .timeZone = QStringLiteral("UTC"),
         // The clock of ManualScheduler: 2027-01-15, 08:00.
         .clock = [] { return std::chrono::system_clock::time_point(std::chrono::seconds{1'800'000'000}); }});
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

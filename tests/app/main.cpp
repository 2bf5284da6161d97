#include "app/Application.h"
#include "ui/UiEngine.h"

#include <gtest/gtest.h>

int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    palomet::UiEngine::chooseRenderer();
    const palomet::Application application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

#include "platform/wayland/CompositorLoss.h"

#include "tests/support/Eventually.h"

#include <QThread>

#include <gtest/gtest.h>

#include <cstdlib>
#include <thread>

using namespace palomet;

TEST(CompositorLoss, IsToldOnceAndForNothingElse) {
    int losses = 0;
    onCompositorLoss([&] { ++losses; });
    qWarning("The window is too small.");
    EXPECT_EQ(losses, 0);
    qWarning("The Wayland connection broke. Did the Wayland compositor die?");
    EXPECT_EQ(losses, 1);
    qWarning("The Wayland connection experienced a fatal error: it is lost");
    EXPECT_EQ(losses, 1);
    onCompositorLoss([&] { ++losses; });
    qWarning("The Wayland connection experienced a fatal error: it is lost");
    EXPECT_EQ(losses, 2);
}

TEST(CompositorLoss, IsToldOnTheMainThreadWhoeverNoticesIt) {
    const QThread *teller = nullptr;
    onCompositorLoss([&] { teller = QThread::currentThread(); });
    // The thread never comes to what follows, which would end the program.
    std::thread([] {
        qWarning("The Wayland connection broke. Did the Wayland compositor die?");
        std::abort();
    }).detach();
    EXPECT_TRUE(test::eventually([&] { return teller != nullptr; }));
    EXPECT_EQ(teller, QCoreApplication::instance()->thread());
}

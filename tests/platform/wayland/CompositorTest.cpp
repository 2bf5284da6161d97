#include "platform/wayland/Compositor.h"

#include "tests/platform/wayland/CompositorDouble.h"

#include <QLocalServer>

#include <gtest/gtest.h>

using namespace palomet;
using namespace Qt::StringLiterals;
using test::CompositorDouble;

TEST(Compositor, SaysWhetherItHasLayers) {
    {
        const CompositorDouble one({.hasLayerShell = true});
        ASSERT_TRUE(askCompositor());
        EXPECT_TRUE(askCompositor()->hasLayerShell);
    }
    const CompositorDouble other({.hasLayerShell = false});
    ASSERT_TRUE(askCompositor());
    EXPECT_FALSE(askCompositor()->hasLayerShell);
}

TEST(Compositor, IsNoneWhereNobodyListens) {
    qputenv("WAYLAND_DISPLAY", "wayland-nowhere");
    EXPECT_FALSE(askCompositor());
}

TEST(Compositor, IsNoneWhereItTakesConnectionsAndSaysNothing) {
    const QTemporaryDir folder;
    QLocalServer silent;
    ASSERT_TRUE(silent.listen(folder.filePath(u"wayland-silent"_s)));
    qputenv("XDG_RUNTIME_DIR", folder.path().toUtf8());
    qputenv("WAYLAND_DISPLAY", "wayland-silent");
    EXPECT_FALSE(askCompositor());
}

TEST(Compositor, LeavesAConnectionThatWasHandedDownToTheToolkit) {
    qputenv("WAYLAND_SOCKET", "77");
    ASSERT_TRUE(askCompositor());
    EXPECT_FALSE(askCompositor()->hasLayerShell);
    EXPECT_EQ(qgetenv("WAYLAND_SOCKET"), "77");
    qunsetenv("WAYLAND_SOCKET");
}

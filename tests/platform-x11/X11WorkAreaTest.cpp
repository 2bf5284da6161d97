#include "platform/x11/X11WorkArea.h"

#include "platform/x11/X11Connection.h"
#include "platform/x11/X11HotKeyGrabber.h"
#include "tests/support/Eventually.h"
#include "tests/support/FakeKeyboard.h"
#include "tests/support/PrivateDisplay.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

using namespace palomet;

TEST(X11WorkArea, HoldsBackNoKeyThatIsPressedWhileItAsks) {
    constexpr quint32 spaceKey = 49;
    const test::PrivateDisplay display;
    // Its repetition would wake us.
    display.run(QStringLiteral("xset"), {QStringLiteral("r"), QStringLiteral("off")});
    const auto connection = X11Connection::open(display.name());
    ASSERT_NE(connection, nullptr);
    X11HotKeyGrabber grabber(*connection);
    int pressed = 0;
    grabber.onPressed = [&](quint32) { ++pressed; };
    ASSERT_TRUE(grabber.grab(1, spaceKey, 0));
    // Whatever is still under way from the grab.
    QCoreApplication::processEvents();
    test::FakeKeyboard keyboard(display.name());
    keyboard.press(test::FakeKeyboard::space);
    // The answer to a question behind it says that the press is on its way to us.
    static_cast<void>(keyboard.activeGroup());
    const QRect screen(0, 0, 1280, 800);
    EXPECT_EQ(X11WorkArea(*connection).usable(screen), screen);
    EXPECT_TRUE(test::eventually([&] { return pressed == 1; }));
    keyboard.release(test::FakeKeyboard::space);
}

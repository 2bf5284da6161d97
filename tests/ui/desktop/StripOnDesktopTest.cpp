#include "tests/support/Windows.h"
#include "tests/ui/desktop/DesktopTest.h"
#include "ui/strip/StripController.h"
#include "ui/strip/StripWindow.h"

using namespace palomet;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using test::eventually;

namespace {

class StripOnDesktopTest : public test::DesktopTest {
protected:
    [[nodiscard]] static QWindow &window() { return *test::stripWindows().constFirst(); }
    void awaitAt(QPoint origin) {
        EXPECT_TRUE(eventually([&] { return rectangle(window()) == QRect(origin, QSize(440, 40)); }))
            << rectangle(window()).x() << ',' << rectangle(window()).y();
    }

    /// The strip comes, changes and goes; that window has the focus all the while.
    void expectFocusThroughAHundredChanges(const QWindow &other) {
        const std::array states{"listening", "hearing",  "thinking", "speaking",
                                "waiting",   "drafting", "muted",    "offline"};
        for (std::size_t change = 0; change < 100; ++change) {
            setState(states.at(change % states.size()));
            if (change % 8 == 7)
                scheduler().advance(5s);
            QCoreApplication::processEvents();
            if (change % 10 == 0) {
                EXPECT_EQ(focusedWindow(), other.winId()) << change;
            }
        }
        EXPECT_EQ(focusedWindow(), other.winId());
        EXPECT_TRUE(other.isActive());
    }

    int m_opened = 0;
    StripView m_view{model(), [this] { ++m_opened; }};
    StripWindow m_panel{m_ui, m_view, &m_workArea, StripWindow::Pointer::Known};
    StripController m_strip{model(), m_panel, scheduler()};
};

/// Two screens beside one another, the second lower than the first.
class StripOnTwoScreensTest : public StripOnDesktopTest {
protected:
    StripOnTwoScreensTest() {
        run("xrandr --setmonitor first 1280/300x1024/240+0+0 screen");
        run("xrandr --setmonitor second 1280/300x800/200+1280+0 none");
        EXPECT_TRUE(eventually([] { return hasScreens({{0, 0, 1280, 1024}, {1280, 0, 1280, 800}}); }));
    }
    ~StripOnTwoScreensTest() override {
        run("xrandr --delmonitor second");
        run("xrandr --delmonitor first");
        EXPECT_TRUE(eventually([] { return hasScreens({{0, 0, 2560, 1024}}); }));
    }
};

} // namespace

TEST_F(StripOnDesktopTest, StandsCentredAboveTheEndOfTheScreen) {
    setState("thinking");
    awaitAt({1280 - 220, 1024 - 48 - 40});
}

TEST_F(StripOnDesktopTest, KeepsOutOfTheReachOfTheWindowManager) {
    setState("thinking");
    EXPECT_TRUE(eventually(
        [this] { return run("xwininfo -id %1", window().winId()).contains("Override Redirect State: yes"); }));
    const auto id = QByteArray::number(window().winId(), 16);
    EXPECT_FALSE(run("xprop -root _NET_CLIENT_LIST").contains("0x" + id));
}

TEST_F(StripOnDesktopTest, LeavesTheFocusWhereItIsThroughAHundredChanges) {
    test::PlainWindow other(Qt::green);
    other.resize(300, 200);
    show(other);
    expectFocusThroughAHundredChanges(other);
}

TEST_F(StripOnDesktopTest, StandsAboveAWindowThatFillsTheScreen) {
    setState("thinking");
    awaitAt({1280 - 220, 1024 - 48 - 40});
    test::PlainWindow other(Qt::green);
    other.showFullScreen();
    EXPECT_TRUE(eventually([] { return colorAt({1280, 200}) == QColor(Qt::green); }));
    EXPECT_TRUE(eventually([] { return colorAt({1280 - 218, 1024 - 48 - 38}) == test::dark; }));
    // Also when it comes later than that window.
    setState("waiting");
    scheduler().advance(5s);
    EXPECT_TRUE(eventually([] { return colorAt({1280 - 218, 1024 - 48 - 38}) == QColor(Qt::green); }));
    setState("thinking");
    EXPECT_TRUE(eventually([] { return colorAt({1280 - 218, 1024 - 48 - 38}) == test::dark; }));
}

TEST_F(StripOnDesktopTest, FollowsTheSizeOfItsScreen) {
    setState("thinking");
    awaitAt({1280 - 220, 1024 - 48 - 40});
    run("xrandr --newmode small 60 1024 1048 1184 1344 768 771 777 806");
    run("xrandr --addmode screen small");
    run("xrandr --output screen --mode small");
    awaitAt({512 - 220, 768 - 48 - 40});
    run("xrandr --output screen --mode 2560x1024");
    awaitAt({1280 - 220, 1024 - 48 - 40});
    run("xrandr --delmode screen small");
    run("xrandr --rmmode small");
}

TEST_F(StripOnDesktopTest, MakesWayForAPanelThatComesWhileItStands) {
    setState("thinking");
    awaitAt({1280 - 220, 1024 - 48 - 40});
    const auto dock = showDock(60, 0, 2559);
    awaitAt({1280 - 220, 1024 - 60 - 48 - 40});
}

TEST_F(StripOnDesktopTest, StandsAboveWhatADockReserves) {
    const auto dock = showDock(60, 0, 2559);
    setState("thinking");
    awaitAt({1280 - 220, 1024 - 60 - 48 - 40});
}

TEST_F(StripOnDesktopTest, OpensTheWindowByAClickWithoutTakingTheFocus) {
    test::PlainWindow other(Qt::green);
    other.resize(300, 200);
    show(other);
    setState("thinking");
    awaitAt({1280 - 220, 1024 - 48 - 40});
    run("xdotool mousemove %1 %2 click 1", 1280 - 200, 1024 - 48 - 20);
    EXPECT_TRUE(eventually([this] { return m_opened == 1; }));
    EXPECT_EQ(focusedWindow(), other.winId());
}

TEST_F(StripOnTwoScreensTest, StandsOnTheScreenUnderThePointer) {
    run("xdotool mousemove 2000 300");
    setState("thinking");
    awaitAt({1280 + 640 - 220, 800 - 48 - 40});
}

TEST_F(StripOnTwoScreensTest, StaysWhereItIsWhileItCanBeSeen) {
    setState("thinking");
    awaitAt({640 - 220, 1024 - 48 - 40});
    run("xdotool mousemove 2000 300");
    setState("speaking");
    setState("waiting");
    scheduler().advance(4s);
    setState("listening");
    awaitAt({640 - 220, 1024 - 48 - 40});
    setState("waiting");
    scheduler().advance(5s);
    setState("listening");
    awaitAt({1280 + 640 - 220, 800 - 48 - 40});
}

TEST_F(StripOnTwoScreensTest, MovesToTheScreenThatIsLeftWhenItsOwnIsUnplugged) {
    run("xdotool mousemove 2000 300");
    setState("thinking");
    awaitAt({1280 + 640 - 220, 800 - 48 - 40});
    run("xdotool mousemove 300 300");
    run("xrandr --delmonitor second");
    EXPECT_TRUE(eventually([] { return hasScreens({{0, 0, 1280, 1024}}); }));
    awaitAt({640 - 220, 1024 - 48 - 40});
    // Another screen that comes or goes leaves it where it is.
    run("xrandr --setmonitor second 1280/300x800/200+1280+0 none");
    EXPECT_TRUE(eventually([] { return hasScreens({{0, 0, 1280, 1024}, {1280, 0, 1280, 800}}); }));
    setState("speaking");
    awaitAt({640 - 220, 1024 - 48 - 40});
}

TEST_F(StripOnTwoScreensTest, StandsAboveAWindowThatFillsEitherScreenAndLeavesItTheFocus) {
    for (const auto *screen : QGuiApplication::screens()) {
        const auto area = screen->geometry();
        run("xdotool mousemove %1 %2", area.center().x(), area.center().y());
        test::PlainWindow other(Qt::green);
        other.setScreen(const_cast<QScreen *>(screen));
        other.setGeometry(area.adjusted(100, 100, -400, -400));
        show(other);
        other.showFullScreen();
        EXPECT_TRUE(eventually([&] { return rectangle(other) == area; }));
        setState("thinking");
        const QPoint origin(area.center().x() + 1 - 220, area.bottom() + 1 - 48 - 40);
        awaitAt(origin);
        EXPECT_TRUE(eventually([&] { return colorAt(origin + QPoint(2, 2)) == test::dark; }));
        EXPECT_EQ(colorAt(area.topLeft() + QPoint(2, 2)), QColor(Qt::green));
        expectFocusThroughAHundredChanges(other);
        setState("waiting");
        scheduler().advance(5s);
    }
}

TEST_F(StripOnTwoScreensTest, StandsOnTheMainScreenWhereThePointerIsNotKnown) {
    StripWindow blind(m_ui, m_view, &m_workArea, StripWindow::Pointer::Unknown);
    run("xdotool mousemove 2000 300");
    blind.orderFront(stripOrigin(blind.screens(), blind.pointer()));
    EXPECT_TRUE(eventually(
        [&] { return rectangle(*test::stripWindows().constLast()).topLeft() == QPoint(640 - 220, 1024 - 48 - 40); }));
}

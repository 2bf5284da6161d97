#include "tests/ui/shell/SettingsWindowTest.h"

using namespace palomet;
using namespace Qt::StringLiterals;

namespace {

/// The window in a tile that is narrower than it can be: whoever lays out tiles does not ask.
class NarrowWindowTest : public test::SettingsWindowTest {
protected:
    static constexpr QSize tile{635, 743};

    void openIn(QSize size) {
        open();
        m_window->setMinimumSize({1, 1});
        m_window->resize(size);
        ASSERT_TRUE(test::eventually([&] { return m_window->rootObject()->size() == size; }));
    }

    [[nodiscard]] QRectF place(QQuickItem *item) const { return item->mapRectToScene(item->boundingRect()); }
    [[nodiscard]] bool isInView(QQuickItem *item) const {
        const auto at = place(item);
        return at.left() >= 0 && at.right() <= m_window->width();
    }

    /// By two fingers, or a wheel that is tilted.
    void goSideways(int angle, const QPointF &at = {450, 400}) {
        QWheelEvent event(at, m_window->mapToGlobal(at), {}, {angle, 0}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(m_window.get(), &event);
    }

    [[nodiscard]] QQuickItem *listen() const { return titled("ZenButton", u"Listen"_s); }
    [[nodiscard]] QQuickItem *now() const { return titled("SidebarItem", u"Now"_s); }
};

} // namespace

TEST_F(NarrowWindowTest, ShowsAllOfItWhereThereIsRoom) {
    openIn(SettingsWindow::minimumContentSize);
    goSideways(-1200);
    EXPECT_TRUE(isInView(now()));
    EXPECT_TRUE(isInView(listen()));
}

TEST_F(NarrowWindowTest, KeepsItsLayoutAndGoesSideways) {
    openIn(tile);
    EXPECT_TRUE(isInView(now()));
    EXPECT_FALSE(isInView(listen()));
    EXPECT_GT(place(listen()).right(), 900) << "the page is as wide as ever";
    goSideways(-1200);
    EXPECT_FALSE(isInView(now()));
    EXPECT_TRUE(isInView(listen()));
    press(listen());
    EXPECT_EQ(told("/listen"), "");
    goSideways(120);
    EXPECT_LT(place(now()).left(), 0);
    goSideways(1200);
    EXPECT_TRUE(isInView(now()));
    const QPointF onTheSidebar(150, 400);
    goSideways(-1200, onTheSidebar);
    EXPECT_TRUE(isInView(listen()));
}

TEST_F(NarrowWindowTest, GoesSidewaysByTheThumbAtItsFoot) {
    openIn(tile);
    const QPoint right(tile.width() - 10, tile.height() - 6);
    QTest::mouseClick(m_window.get(), Qt::LeftButton, {}, right);
    EXPECT_TRUE(isInView(listen()));
    const QPoint left(10, tile.height() - 6);
    QTest::mouseClick(m_window.get(), Qt::LeftButton, {}, left);
    EXPECT_TRUE(isInView(now()));
}

TEST_F(NarrowWindowTest, GoesToWhatTheKeyboardReaches) {
    openIn(tile);
    int outOfSight = 0;
    for (const auto pane : allPanes) {
        m_navigation.setPane(pane);
        for (int i = 0; i < 40; ++i) {
            key(Qt::Key_Tab);
            auto *item = m_window->activeFocusItem();
            ASSERT_TRUE(item);
            const bool isWider = item->width() > tile.width() - 48;
            EXPECT_TRUE(isWider || isInView(item)) << qPrintable(title(pane)) << ' ' << item->metaObject()->className();
            outOfSight += isInView(now()) ? 0 : 1;
        }
    }
    EXPECT_GT(outOfSight, 0) << "it has gone to the right";
}

TEST_F(NarrowWindowTest, StandsAtItsPlaceAgainOnceThereIsRoom) {
    openIn(tile);
    goSideways(-1200);
    m_window->resize(SettingsWindow::openingSize);
    EXPECT_TRUE(test::eventually([this] { return place(now()).left() > 0 && isInView(listen()); }));
}

TEST_F(NarrowWindowTest, ShowsEveryPaneByTheWheelWhereItIsLow) {
    openIn({960, 370});
    auto *brain = titled("SidebarItem", u"Brain"_s);
    auto *foot = all("MicrophoneLine").value(0);
    const auto isInSight = [&] { return place(brain).bottom() <= place(foot).top(); };
    EXPECT_FALSE(isInSight());
    QWheelEvent event({100, 200}, m_window->mapToGlobal(QPointF(100, 200)), {}, {0, -1200}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(m_window.get(), &event);
    EXPECT_TRUE(isInSight());
    press(brain);
    EXPECT_EQ(m_navigation.pane(), Pane::Brain);
}

TEST_F(NarrowWindowTest, ShowsThePaneThatTheKeyboardReachesWhereItIsLow) {
    openIn({960, 370});
    now()->forceActiveFocus(Qt::TabFocusReason);
    for (int i = 0; i < 4; ++i)
        key(Qt::Key_Down);
    EXPECT_EQ(m_navigation.pane(), Pane::Brain);
    auto *brain = titled("SidebarItem", u"Brain"_s);
    EXPECT_TRUE(test::eventually([&] { return place(brain).bottom() <= place(all("MicrophoneLine").value(0)).top(); }));
}

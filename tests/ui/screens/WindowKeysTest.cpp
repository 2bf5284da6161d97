#include "tests/ui/screens/WindowTest.h"

using namespace palomet;
using namespace palomet::test;

namespace {

/// The keys that are the whole window's.
class WindowKeysTest : public WindowTest {};

} // namespace

TEST_F(WindowKeysTest, ChoosesAPaneByItsNumberWhereverTheFocusIs) {
    setFull();
    open(Pane::Now);
    named("ZenInput", QStringLiteral("Type a request instead"))->forceActiveFocus(Qt::TabFocusReason);
    for (const auto &[digit, pane] : {std::pair{Qt::Key_2, Pane::History},
                                      {Qt::Key_3, Pane::Listening},
                                      {Qt::Key_4, Pane::Voice},
                                      {Qt::Key_5, Pane::Brain},
                                      {Qt::Key_1, Pane::Now}}) {
        key(digit, Qt::ControlModifier);
        EXPECT_EQ(navigation.pane(), pane);
    }
    key(Qt::Key_6, Qt::ControlModifier);
    key(Qt::Key_2);
    EXPECT_EQ(navigation.pane(), Pane::Now);
}

TEST_F(WindowKeysTest, RecordsAShortcutThatWouldElseChooseAPane) {
    setFull();
    open(Pane::Listening);
    auto *recorder = named("Pressable", QStringLiteral("Listen"));
    recorder->forceActiveFocus(Qt::TabFocusReason);
    key(Qt::Key_Return);
    QKeyEvent control2(QEvent::KeyPress, Qt::Key_2, Qt::ControlModifier, 11 + 8, 0, 0);
    QCoreApplication::sendEvent(window.get(), &control2);
    EXPECT_EQ(navigation.pane(), Pane::Listening);
}

TEST_F(WindowKeysTest, ClosesTheWindowWithControlAndW) {
    setFull();
    open(Pane::Brain);
    key(Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(navigation.pane(), Pane::Brain);
}

TEST_F(WindowKeysTest, ScrollsThePageWithKeysThatNothingElseTakes) {
    setFull();
    offer();
    open(Pane::Now);
    press(named("SidebarItem", QStringLiteral("Listening")));
    auto *view = first("ListeningPage")->property("view").value<QQuickItem *>();
    const auto at = [&] { return view->property("contentY").toReal(); };
    ASSERT_EQ(at(), 0);
    key(Qt::Key_PageDown);
    const auto page = at();
    EXPECT_GT(page, 300) << "right after the sidebar chose the pane";
    key(Qt::Key_End);
    const auto end = at();
    EXPECT_GE(end, page);
    key(Qt::Key_PageUp);
    EXPECT_LT(at(), end);
    key(Qt::Key_Home);
    EXPECT_EQ(at(), 0);
    key(Qt::Key_5, Qt::ControlModifier);
    view = first("BrainPage")->property("view").value<QQuickItem *>();
    key(Qt::Key_End);
    EXPECT_GT(at(), 0) << "with the focus nowhere";
    key(Qt::Key_End, Qt::ControlModifier);
}

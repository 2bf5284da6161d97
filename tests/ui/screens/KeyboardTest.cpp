#include "tests/ui/screens/WindowTest.h"

using namespace palomet;
using namespace palomet::test;

namespace {

class KeyboardTest : public WindowTest {
protected:
    /// Where Tab leads, beginning behind the sidebar's last pane, until it is back in the sidebar.
    [[nodiscard]] QList<QQuickItem *> stops() {
        named("SidebarItem", QStringLiteral("Brain"))->forceActiveFocus(Qt::TabFocusReason);
        QList<QQuickItem *> stops;
        for (;;) {
            key(Qt::Key_Tab);
            auto *stop = focused();
            if (role(stop) == QAccessible::PageTab || stops.contains(stop))
                return stops;
            stops.append(stop);
            EXPECT_TRUE(showsFocus(stop)) << name(stop).toStdString();
            EXPECT_TRUE(isInView(stop)) << name(stop).toStdString() << " at " << stop->mapToScene({}).y();
        }
    }
    [[nodiscard]] static QStringList names(const QList<QQuickItem *> &items) {
        QStringList names;
        for (auto *item : items)
            names.append(name(item));
        return names;
    }
    /// A ring, or a field's heavy edge.
    [[nodiscard]] static bool showsFocus(QQuickItem *item) {
        for (auto *ring : Scene::all(item, "FocusRing"))
            if (ring->isVisible())
                return true;
        auto *box = item->parentItem()->childItems().value(0);
        const auto boxes = Scene::all(item->parentItem(), "ZenFieldBox");
        return box && !boxes.isEmpty() && boxes.first()->property("isFocused").toBool();
    }
    [[nodiscard]] bool isInView(QQuickItem *item) {
        const auto place = item->mapRectToScene(QRectF(QPointF(), item->size()));
        // Of a list, what fits.
        const QRectF page(0, 0, window->width(), window->height());
        return page.contains(place) || (place.height() > 400 && page.intersects(place));
    }
    /// Reading order: further down, or further right on the same line. Places are the page's, whatever is scrolled.
    [[nodiscard]] static bool isInReadingOrder(const QList<QQuickItem *> &items) {
        const auto place = [](QQuickItem *item) {
            QQuickItem *view = nullptr;
            for (auto *above = item; above; above = above->parentItem())
                view = above->inherits("QQuickFlickable") ? above : view;
            if (!view)
                return item->mapToScene({}) - QPointF(0, 10'000);
            return item->mapToItem(view->property("contentItem").value<QQuickItem *>(), {});
        };
        return std::is_sorted(items.begin(), items.end(), [&](auto *one, auto *other) {
            const auto a = place(one);
            const auto b = place(other);
            return std::abs(a.y() - b.y()) > 12 ? a.y() < b.y() : a.x() < b.x();
        });
    }
};

} // namespace

TEST_F(KeyboardTest, ReachesEverythingOnTheNowPaneInReadingOrder) {
    setFull();
    open(Pane::Now);
    const auto reached = stops();
    EXPECT_EQ(names(reached).join(u'|'),
              QStringLiteral("New conversation|Stop|Listen|Conversation|Type a request instead|Send|"
                             "Draft|Clear|Run now"));
    EXPECT_TRUE(isInReadingOrder(reached)) << names(reached).join(u'|').toStdString();
}

TEST_F(KeyboardTest, ReachesTheListOnTheHistoryPaneAndScrollsIt) {
    std::vector<ConversationSummary> history(100);
    model().setHistory(history);
    open(Pane::History);
    const auto reached = stops();
    EXPECT_EQ(names(reached).join(u'|'), QStringLiteral("Conversations"));
    auto *list = Scene::all(window->contentItem(), "HistoryPage").first()->property("view").value<QQuickItem *>();
    const auto at = [&] { return list->property("contentY").toReal(); };
    reached.first()->forceActiveFocus(Qt::TabFocusReason);
    const auto top = at();
    key(Qt::Key_PageDown);
    EXPECT_GT(at(), top + 300);
    key(Qt::Key_End);
    const auto bottom = at();
    EXPECT_GT(bottom, top + 3'000);
    key(Qt::Key_Down);
    EXPECT_EQ(at(), bottom);
    key(Qt::Key_Up);
    EXPECT_LT(at(), bottom);
    key(Qt::Key_Home);
    EXPECT_EQ(at(), top);
}

TEST_F(KeyboardTest, ReachesEverythingOnTheListeningPaneInReadingOrder) {
    setFull();
    offer();
    open(Pane::Listening);
    const auto reached = stops();
    EXPECT_EQ(names(reached).join(u'|'),
              QStringLiteral("Echo cancellation|Microphone|Transcription model|Only when spoken to|"
                             "Dictate before acting|Action phrase|A draft lasts|Names|Listen|Stop|End of speech|"
                             "Follow-up|After the name|Echo guard"));
    EXPECT_TRUE(isInReadingOrder(reached)) << names(reached).join(u'|').toStdString();
}

TEST_F(KeyboardTest, ReachesEverythingOnTheVoicePaneInReadingOrder) {
    setFull();
    offer();
    open(Pane::Voice);
    const auto reached = stops();
    EXPECT_EQ(names(reached).join(u'|'), QStringLiteral("Play sample|Voice|Name|Speed|Speech model|System voice"));
    EXPECT_TRUE(isInReadingOrder(reached)) << names(reached).join(u'|').toStdString();
}

TEST_F(KeyboardTest, ReachesEverythingOnTheBrainPaneInReadingOrder) {
    setFull();
    offer();
    open(Pane::Brain);
    const auto reached = stops();
    auto expected = QStringLiteral("Open log|Model|Claude Code|");
    for (const auto &action : model().options()->confirmActions)
        expected += action.label + u'|';
    EXPECT_EQ(names(reached).join(u'|'), expected + QStringLiteral("Remove /code|Remove /code/website|Add folder"));
    EXPECT_TRUE(isInReadingOrder(reached)) << names(reached).join(u'|').toStdString();
}

TEST_F(KeyboardTest, ChoosesPanesFromTheSidebar) {
    setFull();
    open(Pane::Now);
    named("SidebarItem", QStringLiteral("Voice"))->forceActiveFocus(Qt::TabFocusReason);
    key(Qt::Key_Return);
    EXPECT_EQ(navigation.pane(), Pane::Voice);
    EXPECT_EQ(all("VoicePage").size(), 1);
    EXPECT_TRUE(eventually([&] { return all("NowPage").isEmpty(); }));
}

TEST_F(KeyboardTest, WalksTheSidebarWithTheArrows) {
    setFull();
    open(Pane::Now);
    named("SidebarItem", QStringLiteral("Now"))->forceActiveFocus(Qt::TabFocusReason);
    for (const auto pane : {Pane::History, Pane::Listening, Pane::Voice, Pane::Brain, Pane::Brain}) {
        key(Qt::Key_Down);
        EXPECT_EQ(navigation.pane(), pane);
        EXPECT_EQ(name(focused()), title(pane));
        EXPECT_TRUE(showsFocus(focused()));
    }
    key(Qt::Key_Up);
    EXPECT_EQ(navigation.pane(), Pane::Voice);
    EXPECT_EQ(name(focused()), title(Pane::Voice));
}

TEST_F(KeyboardTest, OpensAListMovesInItPicksAndClosesItWithEscape) {
    setFull();
    offer();
    open(Pane::Voice);
    auto *select = named("ZenSelect", QStringLiteral("Speed"));
    select->forceActiveFocus(Qt::TabFocusReason);
    key(Qt::Key_Space);
    EXPECT_EQ(all("SelectList").size(), 1);
    key(Qt::Key_Escape);
    EXPECT_TRUE(eventually([&] { return all("SelectList").isEmpty(); }));
    EXPECT_EQ(focused(), select);
    EXPECT_EQ(backend().count("/settings"), 0);
    key(Qt::Key_Down);
    key(Qt::Key_End);
    key(Qt::Key_Return);
    EXPECT_EQ(toldSetting(), R"({"voiceSpeed":2})");
    EXPECT_TRUE(eventually([&] { return all("SelectList").isEmpty(); }));
    EXPECT_EQ(focused(), select);
}

TEST_F(KeyboardTest, TurnsASwitchWithSpace) {
    setFull();
    open(Pane::Listening);
    named("ZenSwitch", QStringLiteral("Echo cancellation"))->forceActiveFocus(Qt::TabFocusReason);
    key(Qt::Key_Space);
    EXPECT_EQ(toldSetting(), R"({"isEchoCancelOn":false})");
}

TEST_F(KeyboardTest, CommitsATextOnlyWithReturnAndOnlyWhenItChanged) {
    setFull();
    open(Pane::Voice);
    auto *field = named("ZenInput", QStringLiteral("Voice"));
    field->forceActiveFocus(Qt::TabFocusReason);
    key(Qt::Key_Return);
    field->forceActiveFocus(Qt::TabFocusReason);
    key(Qt::Key_A, Qt::ControlModifier);
    type(QStringLiteral("other"));
    key(Qt::Key_Escape);
    EXPECT_EQ(field->property("text"), QStringLiteral("a1b2c3d4"));
    field->forceActiveFocus(Qt::TabFocusReason);
    key(Qt::Key_A, Qt::ControlModifier);
    type(QStringLiteral(" other "));
    key(Qt::Key_Return);
    EXPECT_EQ(toldSetting(), R"({"voiceId":"other"})");
    EXPECT_EQ(backend().count("/settings"), 1);
}

TEST_F(KeyboardTest, SendsATypedRequestWithReturn) {
    setFull();
    open(Pane::Now);
    auto *field = named("ZenInput", QStringLiteral("Type a request instead"));
    field->forceActiveFocus(Qt::TabFocusReason);
    type(QStringLiteral("  "));
    key(Qt::Key_Return);
    EXPECT_EQ(field->property("text"), QStringLiteral("  "));
    type(QStringLiteral("run the tests "));
    key(Qt::Key_Return);
    EXPECT_EQ(told("/say"), R"({"text":"run the tests"})");
    EXPECT_EQ(field->property("text"), QString());
    type(QStringLiteral("again"));
    press(named("ZenButton", QStringLiteral("Send")));
    EXPECT_EQ(told("/say"), R"({"text":"again"})");
}

TEST_F(KeyboardTest, ClosesAnOpenListWithTheWindow) {
    setFull();
    offer();
    open(Pane::Voice);
    press(named("ZenSelect", QStringLiteral("Speed")));
    ASSERT_EQ(all("SelectList").size(), 1);
    window->close();
    EXPECT_TRUE(eventually([&] { return all("SelectList").isEmpty(); }));
    window->bringToFront();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    EXPECT_TRUE(all("SelectList").isEmpty());
    EXPECT_EQ(backend().count("/settings"), 0);
}

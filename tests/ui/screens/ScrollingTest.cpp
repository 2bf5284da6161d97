#include "tests/ui/screens/ConversationWindowTest.h"

using namespace palomet;
using namespace palomet::test;

using ScrollingTest = ConversationWindowTest;

TEST_F(ScrollingTest, HasRowsOnlyForWhatShowsOfTenThousandTurns) {
    show(turns(10'000));
    open(Pane::Now);
    settle();
    EXPECT_GT(seen("ConversationRow").size(), 2);
    EXPECT_LT(all("ConversationRow").size(), 60);
    for (int i = 0; i < 40; ++i)
        wheel(10);
    EXPECT_LT(all("ConversationRow").size(), 60);
}

TEST_F(ScrollingTest, FollowsTheNewestTurnWhileItCanBeSeen) {
    auto rows = turns(10'000);
    show(rows);
    open(Pane::Now);
    settle();
    ASSERT_TRUE(row(rows.back().text));
    for (int i = 0; i < 20; ++i) {
        rows.push_back(turn(10'000 + i, 40));
        show(rows);
        settle();
        auto *newest = row(rows.back().text);
        ASSERT_TRUE(newest) << i;
        const auto place = newest->mapRectToScene(newest->boundingRect());
        EXPECT_LE(place.bottom(), window->height()) << i;
        EXPECT_GT(place.top(), 144) << i;
    }
}

TEST_F(ScrollingTest, FollowsTheNewestTurnWhileItGrows) {
    auto rows = turns(100);
    show(rows);
    open(Pane::Now);
    settle();
    for (int i = 0; i < 20; ++i) {
        rows.back().text += QStringLiteral("and another line that makes it longer ").repeated(2);
        rows.back().isOpen = true;
        show(rows);
        settle();
        auto *newest = row(rows.back().text);
        ASSERT_TRUE(newest) << i;
        EXPECT_LE(newest->mapRectToScene(newest->boundingRect()).bottom(), window->height()) << i;
    }
}

TEST_F(ScrollingTest, StaysPutWhenScrolledUp) {
    auto rows = turns(10'000);
    show(rows);
    open(Pane::Now);
    settle();
    wheel(10);
    wheel(10);
    ASSERT_FALSE(row(rows.back().text) && seen("ConversationRow").contains(row(rows.back().text)));
    const auto before = seen("ConversationRow");
    ASSERT_GT(before.size(), 2);
    const auto words = before.at(1)->property("words").toString();
    const auto place = before.at(1)->mapToScene({});
    for (int i = 0; i < 20; ++i) {
        rows.push_back(turn(10'000 + i, 40));
        show(rows);
        settle();
        ASSERT_TRUE(row(words)) << i;
        EXPECT_EQ(row(words)->mapToScene({}), place) << i;
    }
    // Back at the end, it follows again.
    first("NowPage")->forceActiveFocus();
    key(Qt::Key_End);
    settle();
    rows.push_back(turn(20'000, 40));
    show(rows);
    settle();
    ASSERT_TRUE(row(rows.back().text));
    EXPECT_LE(row(rows.back().text)->mapRectToScene({{}, row(rows.back().text)->size()}).bottom(), window->height());
}

TEST_F(ScrollingTest, KeepsTheRowsThatDidNotChange) {
    auto rows = turns(10'000);
    show(rows);
    open(Pane::Now);
    settle();
    QList<QPointer<QQuickItem>> before;
    for (auto *item : all("ConversationRow"))
        before.append(item);
    int changed = 0;
    QObject::connect(app.now()->rows(), &QAbstractItemModel::dataChanged, &engine, [&] { ++changed; });
    QObject::connect(app.now()->rows(), &QAbstractItemModel::modelReset, &engine, [&] { ++changed; });
    rows.push_back(turn(10'000));
    show(rows);
    settle();
    EXPECT_EQ(changed, 0);
    for (const auto &item : before)
        EXPECT_TRUE(item) << "a row was made anew";
}

TEST_F(ScrollingTest, BeginsAtTheTopWhenEverythingFits) {
    show(turns(2));
    open(Pane::Now);
    settle();
    EXPECT_EQ(first("StateCells")->mapToScene({}).y(), 152);
    EXPECT_FALSE(first("NowPage")->property("isScrolled").toBool());
}

TEST_F(ScrollingTest, BeginsAtTheTopOfASmallWindowWithoutATurn) {
    setState("waiting");
    open(Pane::Now);
    window->resize(SettingsWindow::minimumContentSize);
    settle();
    EXPECT_FALSE(first("NowPage")->property("isScrolled").toBool());
    show(turns(2));
    settle();
    EXPECT_TRUE(first("NowPage")->property("isScrolled").toBool()) << "the newest turn is kept in view";
    show({});
    settle();
    EXPECT_FALSE(first("NowPage")->property("isScrolled").toBool());
}

TEST_F(ScrollingTest, SaysThatThereIsNothingOnceAllConversationsAreGone) {
    model().setHistory(std::vector<ConversationSummary>(8));
    open(Pane::History);
    settle();
    EXPECT_FALSE(Scene::all(first("HistoryPage"), "ZenBody").value(0)->isVisible());
    navigation.setPane(Pane::Now);
    settle();
    model().setHistory({});
    navigation.setPane(Pane::History);
    settle();
    const auto texts = Scene::all(first("HistoryPage"), "ZenBody");
    ASSERT_EQ(texts.size(), 1);
    EXPECT_TRUE(texts.first()->isVisible());
}

TEST_F(ScrollingTest, HasRowsOnlyForWhatShowsOfTenThousandConversations) {
    std::vector<ConversationSummary> history(10'000);
    for (std::size_t i = 0; i < history.size(); ++i)
        history[i].firstQuestion = QStringLiteral("question %1").arg(i);
    model().setHistory(history);
    open(Pane::History);
    settle();
    EXPECT_GT(seen("DataRow").size(), 5);
    EXPECT_LT(all("DataRow").size(), 60);
    QList<QPointer<QQuickItem>> before;
    for (auto *item : all("DataRow"))
        before.append(item);
    history.insert(history.begin() + 3, ConversationSummary());
    model().setHistory(history);
    settle();
    EXPECT_LT(all("DataRow").size(), 60);
    for (const auto &item : before)
        EXPECT_TRUE(item);
}

TEST_F(ScrollingTest, HasRowsOnlyForWhatShowsOfAThousandHeardLines) {
    setState("waiting", [](Snapshot &snapshot) {
        snapshot.heard = std::vector<Snapshot::Heard>(
            1'000, {.at = now, .text = QStringLiteral("heard"), .action = QStringLiteral("ignored"), .reason = {}});
    });
    open(Pane::Now);
    settle();
    EXPECT_GT(all("EntryRow").size(), 0);
    EXPECT_LT(all("EntryRow").size(), 120);
    first("NowPage")->forceActiveFocus();
    key(Qt::Key_End);
    settle();
    EXPECT_GT(seen("EntryRow").size(), 8);
    EXPECT_LT(all("EntryRow").size(), 120);
    // The last row ends a margin above the window's end.
    EXPECT_NEAR(seen("EntryRow").last()->mapRectToScene({{}, seen("EntryRow").last()->size()}).bottom(),
                window->height() - 32, 1);
}

TEST_F(ScrollingTest, ShowsATextOfAMegabyteInPiecesAndReachesItsEnd) {
    auto rows = turns(3);
    rows[1].text = QString(1'000'000, u'x');
    show(rows);
    open(Pane::Now);
    settle();
    EXPECT_GT(app.now()->rows()->rowCount(), 500);
    EXPECT_LT(all("ConversationRow").size(), 60);
    for (auto *prose : all("Prose"))
        EXPECT_LE(prose->property("text").toString().size(), 2'000);
    ASSERT_TRUE(row(rows.back().text)) << "the newest turn";
    key(Qt::Key_Home);
    settle();
    EXPECT_EQ(first("StateCells")->mapToScene({}).y(), 152);
    EXPECT_EQ(seen("ConversationRow").value(1)->property("label"), QStringLiteral("Palomet"));
    EXPECT_EQ(seen("ConversationRow").value(1)->property("words").toString().size(), 2'000);
}

TEST_F(ScrollingTest, SaysWhatItRemembersALittleBelowTheEmptyState) {
    setState("waiting", [](Snapshot &snapshot) { snapshot.memory = {.isResumed = true, .journalDays = 2}; });
    open(Pane::Now);
    settle();
    const auto saying = [](const QList<QQuickItem *> &texts, const QString &words) {
        const auto found =
            std::find_if(texts.begin(), texts.end(), [&](const auto *text) { return text->property("text") == words; });
        return found == texts.end() ? nullptr : *found;
    };
    const auto *empty = saying(all("ZenBody"), app.now()->shown().emptyText);
    const auto *remembered = saying(all("ZenNote"), app.now()->shown().rememberedText);
    ASSERT_TRUE(empty && remembered);
    EXPECT_EQ(remembered->y(), empty->y() + empty->height() + 12);
}

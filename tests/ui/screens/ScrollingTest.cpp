#include "tests/ui/screens/WindowTest.h"

using namespace palomet;
using namespace palomet::test;

namespace {

constexpr double now = 1'800'000'000'000;

Snapshot::Row turn(int number, int words = 3) {
    return {.role = number % 2 == 0 ? QStringLiteral("user") : QStringLiteral("assistant"),
            .text = QStringLiteral("turn %1 ").arg(number).repeated(words),
            .at = now - 1'000'000 + number,
            .durationMs = 1'000,
            .isOpen = {}};
}

std::vector<Snapshot::Row> turns(int count) {
    std::vector<Snapshot::Row> rows;
    for (int i = 0; i < count; ++i)
        rows.push_back(turn(i, 1 + i * 7 % 60));
    return rows;
}

class ScrollingTest : public WindowTest {
protected:
    void show(const std::vector<Snapshot::Row> &rows) {
        setState("waiting", [&](Snapshot &snapshot) { snapshot.conversation.rows = rows; });
    }
    [[nodiscard]] QQuickItem *view(const char *page) { return first(page)->property("view").value<QQuickItem *>(); }
    /// The rows that can be seen, from the top.
    [[nodiscard]] QList<QQuickItem *> seen(const char *type) {
        QList<QQuickItem *> seen;
        for (auto *row : all(type)) {
            const auto place = row->mapRectToScene(row->boundingRect());
            if (row->isVisible() && place.bottom() > 144 && place.top() < window->height())
                seen.append(row);
        }
        std::sort(seen.begin(), seen.end(), [](auto *a, auto *b) { return a->y() < b->y(); });
        return seen;
    }
    [[nodiscard]] QQuickItem *row(const QString &words) {
        for (auto *row : all("ConversationRow"))
            if (row->isVisible() && row->property("words") == words)
                return row;
        return nullptr;
    }
    /// Lets the window draw, and so lay out, what has changed.
    void settle() {
        for (int frame = 0; frame < 3; ++frame) {
            window->update();
            QCoreApplication::processEvents();
            [[maybe_unused]] const auto picture = window->grabWindow();
        }
    }
    /// Whether that text stands in the window, whole, under the header.
    [[nodiscard]] bool isSaidInView(const QString &text) {
        const auto texts = all("ZenText") + all("ZenDisplay") + all("ZenNote");
        return std::any_of(texts.begin(), texts.end(), [&](QQuickItem *item) {
            const auto place = item->mapRectToScene(QRectF(0, 0, item->width(), item->height()));
            const bool isUncovered = item->parentItem()->inherits("QQuickRectangle") || place.top() >= 152;
            return item->isVisible() && item->property("text") == text && place.top() >= 144 && isUncovered &&
                   place.bottom() <= window->height();
        });
    }
    /// Texts of which a line shows, but not all of it.
    [[nodiscard]] QStringList cut() {
        const auto lines = all("WholeLines");
        auto *page = lines.isEmpty() ? nullptr : lines.first()->parentItem();
        const auto covered = page->property("scroller").value<QQuickItem *>()->property("covered").toReal();
        const auto top = 144 + covered + lines.first()->property("above").toReal();
        const auto bottom = window->height() - lines.first()->property("below").toReal();
        QStringList cut;
        auto *content = page->property("view").value<QQuickItem *>()->property("contentItem").value<QQuickItem *>();
        for (const auto *type : {"ZenText", "ZenData", "ZenNote", "ZenBody", "ElidedText", "Prose", "BlockLabel"}) {
            for (auto *text : Scene::all(content, type)) {
                const auto box = text->property("box").toReal();
                const auto y = text->mapToScene({}).y();
                for (qreal line = y; text->isVisible() && line + box <= y + text->height() + 0.5; line += box) {
                    if ((line < top - 0.5 && line + box > top + 0.5) ||
                        (line < bottom - 0.5 && line + box > bottom + 0.5))
                        cut.append(text->property("text").toString());
                }
            }
        }
        return cut;
    }
    void wheel(int notches) {
        const QPointF at(700, 400);
        QWheelEvent event(at, window->mapToGlobal(at), {}, {0, notches * 120}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(window.get(), &event);
        settle();
    }
};

} // namespace

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
    window->resize(MacWindow::minimumContentSize);
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

TEST_F(ScrollingTest, ShowsTheStateAndItsNoteWhereverThePageIsScrolled) {
    for (const auto size : {MacWindow::minimumContentSize, MacWindow::openingSize, QSize(1600, 1000)}) {
        for (const int count : {0, 3, 8, 200}) {
            show(turns(count));
            open(Pane::Now);
            window->resize(size);
            settle();
            for (int position = 0; position < 12; ++position) {
                EXPECT_TRUE(isSaidInView(app.now()->stateWord())) << size.height() << ' ' << count << ' ' << position;
                EXPECT_TRUE(isSaidInView(app.now()->stateNote())) << size.height() << ' ' << count << ' ' << position;
                wheel(1);
            }
        }
    }
}

TEST_F(ScrollingTest, CutsNoLineAndNoControlWhereverItRests) {
    setFull([](Snapshot &snapshot) { snapshot.conversation.rows = turns(40); });
    for (const auto size : {MacWindow::minimumContentSize, QSize(1120, 771)}) {
        for (const auto pane : {Pane::Now, Pane::Listening, Pane::Brain}) {
            open(pane);
            window->resize(size);
            settle();
            key(Qt::Key_Home);
            settle();
            for (int position = 0; position < 40; ++position) {
                EXPECT_EQ(cut(), QStringList()) << size.height() << ' ' << position;
                auto *page = first(pane == Pane::Now ? "NowPage" : pane == Pane::Brain ? "BrainPage" : "ListeningPage");
                // Anywhere, as the thumb would.
                QMetaObject::invokeMethod(page->property("scroller").value<QQuickItem *>(), "scrollBy",
                                          Q_ARG(double, 17));
                settle();
            }
        }
    }
}

TEST_F(ScrollingTest, LeavesNothingBehindOfWhatWasScrolledAway) {
    setFull([](Snapshot &snapshot) { snapshot.conversation.rows = turns(8); });
    open(Pane::Now);
    settle();
    for (int position = 0; position < 12; ++position) {
        wheel(position < 6 ? 1 : -1);
        const auto drawn = window->grabWindow();
        // As large as before, and all of it drawn anew.
        window->resize(window->width() + 1, window->height());
        settle();
        window->resize(window->width() - 1, window->height());
        settle();
        EXPECT_EQ(drawn, window->grabWindow()) << position;
    }
}

TEST_F(ScrollingTest, KeepsTheRequestFieldAndTheEndOfTheNewestTurnInViewTogether) {
    for (const int count : {1, 3, 8, 200}) {
        show(turns(count));
        open(Pane::Now);
        window->resize(MacWindow::minimumContentSize);
        settle();
        auto *field = named("ZenInput", QStringLiteral("Type a request instead"));
        field->forceActiveFocus(Qt::TabFocusReason);
        settle();
        EXPECT_LE(field->mapToScene({0, field->height()}).y(), window->height());
        EXPECT_TRUE(seen("ConversationRow")
                        .contains(row(app.now()->rows()->index(count - 1, 0).data(Qt::UserRole + 2).toString())));
    }
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
    const auto *empty = saying(all("ZenBody"), app.now()->emptyText());
    const auto *remembered = saying(all("ZenNote"), app.now()->rememberedText());
    ASSERT_TRUE(empty && remembered);
    EXPECT_EQ(remembered->y(), empty->y() + empty->height() + 12);
}

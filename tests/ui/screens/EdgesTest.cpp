#include "tests/ui/screens/ConversationWindowTest.h"

using namespace palomet;
using namespace palomet::test;

namespace {

class EdgesTest : public ConversationWindowTest {
protected:
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
};

} // namespace

TEST_F(EdgesTest, ShowsTheStateAndItsNoteWhereverThePageIsScrolled) {
    for (const auto size : {SettingsWindow::minimumContentSize, SettingsWindow::openingSize, QSize(1600, 1000)}) {
        for (const int count : {0, 3, 8, 200}) {
            show(turns(count));
            open(Pane::Now);
            window->resize(size);
            settle();
            for (int position = 0; position < 12; ++position) {
                EXPECT_TRUE(isSaidInView(app.now()->shown().stateWord))
                    << size.height() << ' ' << count << ' ' << position;
                EXPECT_TRUE(isSaidInView(app.now()->shown().stateNote))
                    << size.height() << ' ' << count << ' ' << position;
                wheel(1);
            }
        }
    }
}

TEST_F(EdgesTest, CutsNoLineAndNoControlWhereverItRests) {
    setFull([](Snapshot &snapshot) { snapshot.conversation.rows = turns(40); });
    for (const auto size : {SettingsWindow::minimumContentSize, QSize(1120, 771)}) {
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

TEST_F(EdgesTest, LeavesNothingBehindOfWhatWasScrolledAway) {
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

TEST_F(EdgesTest, KeepsTheRequestFieldAndTheEndOfTheNewestTurnInViewTogether) {
    for (const int count : {1, 3, 8, 200}) {
        show(turns(count));
        open(Pane::Now);
        window->resize(SettingsWindow::minimumContentSize);
        settle();
        auto *field = named("ZenInput", QStringLiteral("Type a request instead"));
        field->forceActiveFocus(Qt::TabFocusReason);
        settle();
        EXPECT_LE(field->mapToScene({0, field->height()}).y(), window->height());
        EXPECT_TRUE(seen("ConversationRow")
                        .contains(row(app.now()->rows()->index(count - 1, 0).data(Qt::UserRole + 2).toString())));
    }
}

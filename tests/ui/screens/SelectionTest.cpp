#include "tests/ui/screens/WindowTest.h"

#include <QClipboard>

using namespace palomet;
using namespace palomet::test;

namespace {

class SelectionTest : public WindowTest {
protected:
    void show(const QStringList &texts) {
        setState("waiting", [&](Snapshot &snapshot) {
            for (const auto &text : texts)
                snapshot.conversation.rows.push_back(row("user", text));
        });
    }
    /// The words that are shown of that row.
    [[nodiscard]] QQuickItem *prose(const QString &text) {
        for (auto *prose : all("Prose"))
            if (prose->property("text") == text && prose->isVisible())
                return prose;
        ADD_FAILURE() << "There is no " << text.toStdString() << ".";
        return nullptr;
    }
    /// In the window, before that character.
    [[nodiscard]] QPoint at(const QString &text, int position) {
        auto *of = prose(text);
        QRectF caret;
        QMetaObject::invokeMethod(of, "caretAt", Q_RETURN_ARG(QRectF, caret), Q_ARG(int, position));
        return of->mapToScene(caret.center()).toPoint();
    }
    void drag(QPoint from, QPoint to) {
        QTest::mousePress(window.get(), Qt::LeftButton, {}, from);
        QTest::mouseMove(window.get(), (from + to) / 2);
        QTest::mouseMove(window.get(), to);
        QTest::mouseRelease(window.get(), Qt::LeftButton, {}, to);
    }
    [[nodiscard]] QString copied() {
        QGuiApplication::clipboard()->setText(QStringLiteral("nothing"));
        key(Qt::Key_C, Qt::ControlModifier);
        return QGuiApplication::clipboard()->text();
    }
    [[nodiscard]] QQuickItem *entry(const QString &title) {
        for (auto *item : Scene::all(first("ContextMenu"), "Pressable"))
            if (name(item) == title)
                return item;
        ADD_FAILURE() << "The menu has no " << title.toStdString() << ".";
        return nullptr;
    }
    /// A field's own rectangle is that of its text.
    [[nodiscard]] static QPoint middle(QQuickItem *field) {
        return field->mapToScene(QPointF(field->width() / 2, field->height() / 2)).toPoint();
    }
    void settle() {
        for (int frame = 0; frame < 3; ++frame) {
            [[maybe_unused]] const auto picture = window->grabWindow();
            QCoreApplication::processEvents();
        }
    }

    const QString question = QStringLiteral("How is the site's deploy going?");
    const QString answer = QStringLiteral("It passed ten minutes ago.");
};

} // namespace

TEST_F(SelectionTest, SelectsPartOfOneTextByDragging) {
    show({question, answer});
    open(Pane::Now);
    drag(at(question, 4), at(question, 10));
    EXPECT_EQ(copied(), QStringLiteral("is the"));
    press(named("SidebarItem", QStringLiteral("Now")));
    EXPECT_EQ(copied(), QStringLiteral("is the")) << "wherever the focus is";
    QTest::mouseClick(window.get(), Qt::LeftButton, {}, at(question, 2));
    EXPECT_EQ(copied(), QStringLiteral("nothing"));
}

TEST_F(SelectionTest, SelectsFromOneTextIntoAnotherAndFurtherWithShift) {
    show({question, answer, QStringLiteral("Thanks")});
    open(Pane::Now);
    drag(at(answer, 9), at(question, 25));
    EXPECT_EQ(copied(), QStringLiteral("going?\nIt passed"));
    QTest::mouseClick(window.get(), Qt::LeftButton, Qt::ShiftModifier, at(QStringLiteral("Thanks"), 6));
    EXPECT_EQ(copied(), QStringLiteral(" ten minutes ago.\nThanks"));
}

TEST_F(SelectionTest, SelectsAWordByTwoClicksAndATextByThree) {
    show({question, answer});
    open(Pane::Now);
    const auto there = at(answer, 5);
    QTest::mouseClick(window.get(), Qt::LeftButton, {}, there);
    QTest::mouseDClick(window.get(), Qt::LeftButton, {}, there);
    EXPECT_EQ(copied(), QStringLiteral("passed"));
    QTest::mouseClick(window.get(), Qt::LeftButton, {}, there);
    EXPECT_EQ(copied(), answer);
}

TEST_F(SelectionTest, SelectsByKeysFromTheFirstLineThatShows) {
    show({question, answer});
    open(Pane::Now);
    named("SelectionArea", QStringLiteral("Conversation"))->forceActiveFocus(Qt::TabFocusReason);
    for (int i = 0; i < 3; ++i)
        key(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(copied(), QStringLiteral("How"));
    key(Qt::Key_Right, Qt::ShiftModifier | Qt::ControlModifier);
    EXPECT_EQ(copied(), QStringLiteral("How "));
    key(Qt::Key_End, Qt::ShiftModifier);
    EXPECT_EQ(copied(), question);
    key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(copied(), question + u'\n' + answer);
    key(Qt::Key_Up, Qt::ShiftModifier);
    key(Qt::Key_Home, Qt::ShiftModifier);
    EXPECT_EQ(copied(), QStringLiteral("nothing"));
    key(Qt::Key_End, Qt::ShiftModifier | Qt::ControlModifier);
    EXPECT_EQ(copied(), question + u'\n' + answer);
    key(Qt::Key_Escape);
    EXPECT_EQ(copied(), QStringLiteral("nothing"));
    key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(copied(), question + u'\n' + answer);
    EXPECT_TRUE(window->isVisible());
}

TEST_F(SelectionTest, CopiesFromAMenuAndSelectsAllInIt) {
    show({question, answer});
    open(Pane::Now);
    drag(at(question, 0), at(question, 3));
    QTest::mouseClick(window.get(), Qt::RightButton, {}, at(question, 1));
    press(entry(QStringLiteral("Copy")));
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("How"));
    EXPECT_TRUE(eventually([&] { return all("ContextMenu").isEmpty(); }));
    QTest::mouseClick(window.get(), Qt::RightButton, {}, at(answer, 1));
    EXPECT_FALSE(entry(QStringLiteral("Copy"))->isEnabled());
    // By keys as well: the first that can be had is the other.
    key(Qt::Key_Down);
    key(Qt::Key_Return);
    EXPECT_TRUE(eventually([&] { return all("ContextMenu").isEmpty(); }));
    EXPECT_EQ(copied(), question + u'\n' + answer);
    key(Qt::Key_Menu);
    EXPECT_EQ(all("ContextMenu").size(), 1);
    key(Qt::Key_Escape);
    EXPECT_TRUE(eventually([&] { return all("ContextMenu").isEmpty(); }));
    EXPECT_EQ(copied(), question + u'\n' + answer) << "Escape closed the menu alone";
}

TEST_F(SelectionTest, SelectsWhatWasHeardAndOneListAtATime) {
    setState("waiting", [&](Snapshot &snapshot) {
        snapshot.conversation.rows.push_back(row("user", question));
        snapshot.heard = {{.at = 1'800'000'000'000, .text = answer, .action = QStringLiteral("ignored"), .reason = {}}};
    });
    open(Pane::Now);
    drag(at(question, 0), at(question, 3));
    drag(at(answer, 3), at(answer, 9));
    EXPECT_EQ(copied(), QStringLiteral("passed"));
    key(Qt::Key_Escape);
    EXPECT_EQ(copied(), QStringLiteral("nothing"));
}

TEST_F(SelectionTest, CopiesAQuestionOfTheHistoryWholeThoughItIsCut) {
    const auto longQuestion = QStringLiteral("And then what about everything else? ").repeated(200).trimmed();
    std::vector<ConversationSummary> history(2);
    history[0].firstQuestion = longQuestion;
    history[1].firstQuestion = answer;
    model().setHistory(history);
    open(Pane::History);
    const auto there = at(longQuestion, 3);
    QTest::mouseClick(window.get(), Qt::LeftButton, {}, there);
    QTest::mouseDClick(window.get(), Qt::LeftButton, {}, there);
    EXPECT_EQ(copied(), QStringLiteral("And"));
    QTest::mouseClick(window.get(), Qt::LeftButton, {}, there);
    EXPECT_EQ(copied(), longQuestion);
    drag(at(answer, 0), at(answer, 9));
    EXPECT_EQ(copied(), QStringLiteral("It passed"));
}

TEST_F(SelectionTest, FollowsNewTurnsWhileSomethingIsSelected) {
    QStringList texts;
    for (int i = 0; i < 200; ++i)
        texts.append(QStringLiteral("turn %1").arg(i));
    show(texts);
    open(Pane::Now);
    settle();
    const auto newest = texts.last();
    drag(at(newest, 0), at(newest, 4));
    for (int i = 200; i < 230; ++i) {
        texts.append(QStringLiteral("turn %1").arg(i));
        show(texts);
        settle();
        const auto *shown = prose(texts.last());
        ASSERT_TRUE(shown);
        EXPECT_LT(shown->mapToScene({}).y(), window->height());
    }
    EXPECT_EQ(copied(), QStringLiteral("turn")) << "also once its row is far away";
}

TEST_F(SelectionTest, OffersAFieldsOwnActionsInAMenu) {
    show({});
    open(Pane::Now);
    auto *field = named("ZenInput", QStringLiteral("Type a request instead"));
    press(field);
    type(QStringLiteral("run"));
    const auto there = middle(field);
    const auto pick = [&](const QString &title) {
        QTest::mouseClick(window.get(), Qt::RightButton, {}, there);
        press(entry(title));
        EXPECT_TRUE(eventually([&] { return all("ContextMenu").isEmpty(); }));
        EXPECT_EQ(focused(), field);
    };
    pick(QStringLiteral("Select all"));
    EXPECT_EQ(field->property("selectedText"), QStringLiteral("run"));
    pick(QStringLiteral("Cut"));
    EXPECT_EQ(field->property("text"), QString());
    EXPECT_EQ(app.now()->draft(), QString());
    pick(QStringLiteral("Undo"));
    EXPECT_EQ(field->property("text"), QStringLiteral("run"));
    pick(QStringLiteral("Redo"));
    pick(QStringLiteral("Paste"));
    EXPECT_EQ(app.now()->draft(), QStringLiteral("run"));
    key(Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(all("ContextMenu").size(), 1);
    key(Qt::Key_Return);
    EXPECT_TRUE(eventually([&] { return all("ContextMenu").isEmpty(); }));
    EXPECT_EQ(backend().count("/say"), 0) << "the key was the menu's";
}

TEST_F(SelectionTest, KeepsWhatIsBeingTypedInASettingWhileItsMenuIsOpen) {
    setFull();
    open(Pane::Voice);
    auto *field = named("ZenInput", QStringLiteral("Voice"));
    press(field);
    key(Qt::Key_A, Qt::ControlModifier);
    type(QStringLiteral("new"));
    QGuiApplication::clipboard()->setText(QStringLiteral("er"));
    QTest::mouseClick(window.get(), Qt::RightButton, {}, middle(field));
    press(entry(QStringLiteral("Paste")));
    EXPECT_EQ(field->property("text").toString().toStdString(), "newer");
}

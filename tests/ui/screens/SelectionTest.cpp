#include "tests/ui/screens/WindowTest.h"

#include <QClipboard>

using namespace palomet;
using namespace palomet::test;
using namespace Qt::StringLiterals;

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
        QGuiApplication::clipboard()->setText(u"nothing"_s);
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

    const QString question = u"How is the site's deploy going?"_s;
    const QString answer = u"It passed ten minutes ago."_s;
};

} // namespace

TEST_F(SelectionTest, SelectsPartOfOneTextByDragging) {
    show({question, answer});
    open(Pane::Now);
    drag(at(question, 4), at(question, 10));
    EXPECT_EQ(copied(), u"is the"_s);
    press(named("SidebarItem", u"Now"_s));
    EXPECT_EQ(copied(), u"is the"_s) << "wherever the focus is";
    QTest::mouseClick(window.get(), Qt::LeftButton, {}, at(question, 2));
    EXPECT_EQ(copied(), u"nothing"_s);
}

TEST_F(SelectionTest, SelectsFromOneTextIntoAnotherAndFurtherWithShift) {
    show({question, answer, u"Thanks"_s});
    open(Pane::Now);
    drag(at(answer, 9), at(question, 25));
    EXPECT_EQ(copied(), u"going?\nIt passed"_s);
    QTest::mouseClick(window.get(), Qt::LeftButton, Qt::ShiftModifier, at(u"Thanks"_s, 6));
    EXPECT_EQ(copied(), u" ten minutes ago.\nThanks"_s);
}

TEST_F(SelectionTest, SelectsAWordByTwoClicksAndATextByThree) {
    show({question, answer});
    open(Pane::Now);
    const auto there = at(answer, 5);
    QTest::mouseClick(window.get(), Qt::LeftButton, {}, there);
    QTest::mouseDClick(window.get(), Qt::LeftButton, {}, there);
    EXPECT_EQ(copied(), u"passed"_s);
    QTest::mouseClick(window.get(), Qt::LeftButton, {}, there);
    EXPECT_EQ(copied(), answer);
}

TEST_F(SelectionTest, SelectsByKeysFromTheFirstLineThatShows) {
    show({question, answer});
    open(Pane::Now);
    named("SelectionArea", u"Conversation"_s)->forceActiveFocus(Qt::TabFocusReason);
    for (int i = 0; i < 3; ++i)
        key(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(copied(), u"How"_s);
    key(Qt::Key_Right, Qt::ShiftModifier | Qt::ControlModifier);
    EXPECT_EQ(copied(), u"How "_s);
    key(Qt::Key_End, Qt::ShiftModifier);
    EXPECT_EQ(copied(), question);
    key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(copied(), question + u'\n' + answer);
    key(Qt::Key_Up, Qt::ShiftModifier);
    key(Qt::Key_Home, Qt::ShiftModifier);
    EXPECT_EQ(copied(), u"nothing"_s);
    key(Qt::Key_End, Qt::ShiftModifier | Qt::ControlModifier);
    EXPECT_EQ(copied(), question + u'\n' + answer);
    key(Qt::Key_Escape);
    EXPECT_EQ(copied(), u"nothing"_s);
    key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(copied(), question + u'\n' + answer);
    EXPECT_TRUE(window->isVisible());
}

TEST_F(SelectionTest, CopiesFromAMenuAndSelectsAllInIt) {
    show({question, answer});
    open(Pane::Now);
    drag(at(question, 0), at(question, 3));
    QTest::mouseClick(window.get(), Qt::RightButton, {}, at(question, 1));
    press(entry(u"Copy"_s));
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"How"_s);
    EXPECT_TRUE(eventually([&] { return all("ContextMenu").isEmpty(); }));
    QTest::mouseClick(window.get(), Qt::RightButton, {}, at(answer, 1));
    EXPECT_FALSE(entry(u"Copy"_s)->isEnabled());
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
        snapshot.heard = {{.at = 1'800'000'000'000, .text = answer, .action = u"ignored"_s, .reason = {}}};
    });
    open(Pane::Now);
    drag(at(question, 0), at(question, 3));
    drag(at(answer, 3), at(answer, 9));
    EXPECT_EQ(copied(), u"passed"_s);
    key(Qt::Key_Escape);
    EXPECT_EQ(copied(), u"nothing"_s);
}

TEST_F(SelectionTest, CopiesAQuestionOfTheHistoryWholeThoughItIsCut) {
    const auto longQuestion = u"And then what about everything else? "_s.repeated(200).trimmed();
    std::vector<ConversationSummary> history(2);
    history[0].firstQuestion = longQuestion;
    history[1].firstQuestion = answer;
    model().setHistory(history);
    open(Pane::History);
    const auto there = at(longQuestion, 3);
    QTest::mouseClick(window.get(), Qt::LeftButton, {}, there);
    QTest::mouseDClick(window.get(), Qt::LeftButton, {}, there);
    EXPECT_EQ(copied(), u"And"_s);
    QTest::mouseClick(window.get(), Qt::LeftButton, {}, there);
    EXPECT_EQ(copied(), longQuestion);
    drag(at(answer, 0), at(answer, 9));
    EXPECT_EQ(copied(), u"It passed"_s);
}

TEST_F(SelectionTest, FollowsNewTurnsWhileSomethingIsSelected) {
    QStringList texts;
    for (int i = 0; i < 200; ++i)
        texts.append(u"turn %1"_s.arg(i));
    show(texts);
    open(Pane::Now);
    settle();
    const auto newest = texts.last();
    drag(at(newest, 0), at(newest, 4));
    for (int i = 200; i < 230; ++i) {
        texts.append(u"turn %1"_s.arg(i));
        show(texts);
        settle();
        const auto *shown = prose(texts.last());
        ASSERT_TRUE(shown);
        EXPECT_LT(shown->mapToScene({}).y(), window->height());
    }
    EXPECT_EQ(copied(), u"turn"_s) << "also once its row is far away";
}

TEST_F(SelectionTest, OffersAFieldsOwnActionsInAMenu) {
    show({});
    open(Pane::Now);
    auto *field = named("ZenInput", u"Type a request instead"_s);
    press(field);
    type(u"run"_s);
    const auto there = middle(field);
    const auto pick = [&](const QString &title) {
        QTest::mouseClick(window.get(), Qt::RightButton, {}, there);
        press(entry(title));
        EXPECT_TRUE(eventually([&] { return all("ContextMenu").isEmpty(); }));
        EXPECT_EQ(focused(), field);
    };
    pick(u"Select all"_s);
    EXPECT_EQ(field->property("selectedText"), u"run"_s);
    pick(u"Cut"_s);
    EXPECT_EQ(field->property("text"), QString());
    EXPECT_EQ(app.now()->draft(), QString());
    pick(u"Undo"_s);
    EXPECT_EQ(field->property("text"), u"run"_s);
    pick(u"Redo"_s);
    pick(u"Paste"_s);
    EXPECT_EQ(app.now()->draft(), u"run"_s);
    key(Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(all("ContextMenu").size(), 1);
    key(Qt::Key_Return);
    EXPECT_TRUE(eventually([&] { return all("ContextMenu").isEmpty(); }));
    EXPECT_EQ(backend().count("/say"), 0) << "the key was the menu's";
}

TEST_F(SelectionTest, KeepsWhatIsBeingTypedInASettingWhileItsMenuIsOpen) {
    setFull();
    open(Pane::Voice);
    auto *field = named("ZenInput", u"Voice"_s);
    press(field);
    key(Qt::Key_A, Qt::ControlModifier);
    type(u"new"_s);
    QGuiApplication::clipboard()->setText(u"er"_s);
    QTest::mouseClick(window.get(), Qt::RightButton, {}, middle(field));
    press(entry(u"Paste"_s));
    EXPECT_EQ(field->property("text").toString().toStdString(), "newer");
}

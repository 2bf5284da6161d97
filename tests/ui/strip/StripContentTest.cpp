#include "tests/support/Windows.h"
#include "tests/ui/support/Scene.h"
#include "tests/ui/support/UiTest.h"
#include "ui/UiEngine.h"
#include "ui/kit/Announcement.h"
#include "ui/strip/StripWindow.h"

#include <QAccessible>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <private/qguiapplication_p.h>

using namespace palomet;
using namespace Qt::StringLiterals;
using test::Scene;

namespace {

QAccessible::UpdateHandler previousHandler = nullptr;
QStringList alerts;

void notice(QAccessibleEvent *event) {
    if (event->type() == QAccessible::Alert)
        alerts.append(event->accessibleInterface()->text(QAccessible::Name));
    if (previousHandler)
        previousHandler(event);
}

class StripContentTest : public test::UiTest {
protected:
    StripContentTest() {
        QObject::connect(&m_ui.get(), &QQmlEngine::warnings, &m_ui.get(), [](const QList<QQmlError> &errors) {
            for (const auto &error : errors)
                ADD_FAILURE() << error.toString().toStdString();
        });
        // As a screen reader does that asks for the program.
        QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(true);
        previousHandler = QAccessible::installUpdateHandler(notice);
        m_strip.orderFront(QPoint(10, 10));
        alerts.clear();
    }
    ~StripContentTest() override { QAccessible::installUpdateHandler(previousHandler); }

    [[nodiscard]] static QQuickView *window() { return test::stripWindows().constFirst(); }
    [[nodiscard]] static QQuickItem *root() { return window()->rootObject(); }
    /// The texts that can be seen, from left to right.
    [[nodiscard]] QList<QQuickItem *> texts() {
        QList<QQuickItem *> found;
        std::function<void(QQuickItem *)> look = [&](QQuickItem *item) {
            if (!item->isVisible())
                return;
            if (item->inherits("QQuickText"))
                found.append(item);
            for (auto *child : item->childItems())
                look(child);
        };
        look(root());
        return found;
    }
    [[nodiscard]] QStringList words() {
        QStringList found;
        for (const auto *text : texts())
            found.append(text->property("text").toString());
        return found;
    }

    int m_opened = 0;
    UiEngine m_ui{u"" PALOMET_BINARY_DIR "/resources"_s};
    StripView m_view{model(), [this] { ++m_opened; }};
    StripWindow m_strip{m_ui, m_view, nullptr, StripWindow::Pointer::Known};
};

} // namespace

TEST_F(StripContentTest, ShowsTheWordTheLineAndTheKeyThatStops) {
    setState("listening");
    EXPECT_EQ(words(), (QStringList{u"Listening"_s, u"Go ahead, no name needed"_s}));
    setState("thinking", [](Snapshot &snapshot) { snapshot.conversation.rows = {test::row("user", u"How is it?"_s)}; });
    EXPECT_EQ(words(), (QStringList{u"Thinking"_s, u"How is it?"_s, u"esc"_s}));
}

TEST_F(StripContentTest, ShowsASignThatStopsWhenItIsClickedWhereNoKeyDoes) {
    backend().serve("/stop", "{}");
    m_view.setStopKey(QString());
    setState("listening");
    const QPoint end(420, 20);
    QTest::mouseClick(window(), Qt::LeftButton, {}, end);
    EXPECT_EQ(m_opened, 1) << "there is nothing to stop";
    setState("speaking");
    EXPECT_EQ(words(), (QStringList{u"Speaking"_s, QString()}));
    QTest::mouseClick(window(), Qt::LeftButton, {}, end);
    EXPECT_TRUE(test::eventually([this] { return backend().count("/stop") == 1; }));
    QTest::mouseClick(window(), Qt::LeftButton, {}, QPoint(60, 20));
    EXPECT_EQ(m_opened, 2);
    m_view.setStopKey(u"Meta+F1"_s);
    EXPECT_EQ(words(), (QStringList{u"Speaking"_s, QString(), u"Meta+F1"_s}));
    QTest::mouseClick(window(), Qt::LeftButton, {}, end);
    EXPECT_EQ(m_opened, 3);
    EXPECT_EQ(backend().count("/stop"), 1);
}

TEST_F(StripContentTest, LeavesRoomForTheLineBesideAKeyOfManyWords) {
    m_view.setStopKey(u"the key at the top left of the second keyboard, or its twin"_s);
    setState("thinking", [](Snapshot &snapshot) { snapshot.conversation.rows = {test::row("user", u"How is it?"_s)}; });
    const auto found = texts();
    ASSERT_EQ(found.size(), 3);
    EXPECT_TRUE(found[2]->property("truncated").toBool());
    EXPECT_FALSE(found[1]->property("truncated").toBool());
    EXPECT_LE(found[2]->mapToScene({found[2]->width(), 0}).x(), 440 - 14);
}

TEST_F(StripContentTest, BeginsTheWordAtTheSamePlaceInEveryState) {
    for (const auto *state : {"listening", "hearing", "drafting", "thinking", "speaking", "muted"}) {
        setState(state);
        EXPECT_EQ(texts().value(0)->mapToScene({}).x(), 46) << state;
    }
}

TEST_F(StripContentTest, ElidesALongLineBeforeTheKeyAndNeverClipsIt) {
    setState("thinking",
             [](Snapshot &snapshot) { snapshot.conversation.rows = {test::row("user", QString(10'000, u'm'))}; });
    const auto found = texts();
    ASSERT_EQ(found.size(), 3);
    EXPECT_TRUE(found[1]->property("truncated").toBool());
    EXPECT_LE(found[1]->mapToScene({found[1]->width(), 0}).x(), found[2]->mapToScene({}).x() - 12);
    EXPECT_EQ(found[1]->property("lineCount"), 1);
}

TEST_F(StripContentTest, SaysAllOfALineThatItCutInATipAboveItAsLongAsItIsShown) {
    const auto tip = [this]() -> QWindow * {
        for (auto *window : QGuiApplication::topLevelWindows())
            if (window->type() == Qt::ToolTip && window->isVisible())
                return window;
        return nullptr;
    };
    const auto question = u"<b>Why</b> "_s.repeated(40);
    setState("thinking", [&](Snapshot &snapshot) { snapshot.conversation.rows = {test::row("user", question)}; });
    m_strip.orderFront(QPoint(100, 400));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window()));
    for (const auto place : {QPoint(2, 2), QPoint(200, 20)})
        QTest::mouseMove(window(), place);
    ASSERT_TRUE(test::eventually([&] { return tip() != nullptr; }));
    EXPECT_EQ(tip()->title(), question.trimmed());
    EXPECT_LE(tip()->width(), window()->width());
    EXPECT_NEAR(tip()->x() + tip()->width() / 2, window()->x() + window()->width() / 2, 1);
    EXPECT_EQ(tip()->y() + tip()->height() + 4, window()->y());
    EXPECT_TRUE(tip()->flags().testFlag(Qt::WindowDoesNotAcceptFocus));
    m_strip.orderOut();
    EXPECT_TRUE(test::eventually([&] { return tip() == nullptr; }));
}

TEST_F(StripContentTest, PutsALineOfSeveralLinesInOne) {
    setState("thinking",
             [](Snapshot &snapshot) { snapshot.conversation.rows = {test::row("user", u"One\ntwo\r\nthree"_s)}; });
    const auto *line = texts().value(1);
    EXPECT_EQ(line->property("lineCount"), 1);
    EXPECT_EQ(line->property("text"), u"One two three"_s);
}

TEST_F(StripContentTest, IsFortyPointsHighAndDarkAllOver) {
    EXPECT_EQ(window()->size(), QSize(440, 40));
    EXPECT_EQ(root()->size(), QSizeF(440, 40));
    EXPECT_EQ(window()->color(), QColor(0x11, 0x18, 0x1C));
}

TEST_F(StripContentTest, OpensTheWindowByAClickAnywhere) {
    setState("thinking");
    for (const auto place : {QPoint(2, 2), QPoint(60, 20), QPoint(437, 37)})
        QTest::mouseClick(window(), Qt::LeftButton, {}, place);
    EXPECT_EQ(m_opened, 3);
}

TEST_F(StripContentTest, IsANotificationForAScreenReaderThatOpensTheWindow) {
    setState("listening");
    auto *interface = QAccessible::queryAccessibleInterface(root()->findChild<Announcement *>());
    ASSERT_TRUE(interface && interface->actionInterface());
    EXPECT_EQ(interface->role(), QAccessible::Notification);
    EXPECT_EQ(interface->text(QAccessible::Name), u"Listening: Go ahead, no name needed");
    interface->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(m_opened, 1);
}

TEST_F(StripContentTest, RaisesOneAlertForEveryStateAndNoneForAnotherLine) {
    setState("listening");
    setState("thinking");
    setState("thinking", [](Snapshot &snapshot) { snapshot.conversation.rows = {test::row("user", u"How is it?"_s)}; });
    setState("waiting");
    EXPECT_EQ(alerts, (QStringList{u"Listening: Go ahead, no name needed"_s, u"Thinking"_s, u"Waiting"_s}));
}

TEST_F(StripContentTest, RaisesNoAlertWhileTheStateIsSaidElsewhere) {
    bool isSaidElsewhere = true;
    m_strip.isStateSaidElsewhere = [&] { return isSaidElsewhere; };
    setState("listening");
    isSaidElsewhere = false;
    setState("listening");
    EXPECT_EQ(alerts, QStringList());
    setState("speaking");
    EXPECT_EQ(alerts, QStringList{u"Speaking"_s});
}

TEST_F(StripContentTest, MovesNothingWhileItIsHidden) {
    setState("thinking");
    m_strip.orderOut();
    EXPECT_FALSE(m_strip.isVisible());
    const auto *steps = Scene::all(root(), "Steps").value(0);
    ASSERT_TRUE(steps);
    for (const auto *timer : steps->findChildren<QObject *>()) {
        if (timer->inherits("QQmlTimer")) {
            EXPECT_FALSE(timer->property("running").toBool());
        }
    }
}

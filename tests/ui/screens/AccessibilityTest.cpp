#include "localization/Localization.h"
#include "tests/ui/screens/WindowTest.h"
#include "ui/kit/Wishes.h"

#include <set>

using namespace palomet;
using namespace palomet::test;

namespace {

QAccessible::UpdateHandler previousHandler = nullptr;
QStringList alerts;
/// What a screen reader on the accessibility bus reads out.
QStringList notifications;

void notice(QAccessibleEvent *event) {
    auto *interface = event->accessibleInterface();
    if (event->type() == QAccessible::Alert && interface)
        alerts.append(interface->text(QAccessible::Name));
    if (event->type() == QAccessible::ObjectShow && interface && interface->role() == QAccessible::Notification)
        notifications.append(interface->text(QAccessible::Name));
    if (previousHandler)
        previousHandler(event);
}

class AccessibilityTest : public WindowTest {
protected:
    void SetUp() override {
        alerts.clear();
        notifications.clear();
        previousHandler = QAccessible::installUpdateHandler(notice);
    }
    void TearDown() override { QAccessible::installUpdateHandler(previousHandler); }

    /// Everything that a screen reader finds on the page, as "role: name".
    [[nodiscard]] QStringList tree() {
        QStringList lines;
        describe(QAccessible::queryAccessibleInterface(window.get()), lines);
        return lines;
    }
    static void describe(QAccessibleInterface *from, QStringList &lines) {
        if (!from || from->state().invisible)
            return;
        if (!from->text(QAccessible::Name).isEmpty())
            lines.append(QString::fromUtf8(qAccessibleRoleString(from->role())) + QStringLiteral(": ") +
                         from->text(QAccessible::Name));
        for (int i = 0; i < from->childCount(); ++i)
            describe(from->child(i), lines);
    }
    [[nodiscard]] static QAccessible::State state(QQuickItem *item) {
        return QAccessible::queryAccessibleInterface(item)->state();
    }
    [[nodiscard]] static QString description(QQuickItem *item) {
        return QAccessible::queryAccessibleInterface(item)->text(QAccessible::Description);
    }
    static void act(QQuickItem *item, const QString &action) {
        QAccessible::queryAccessibleInterface(item)->actionInterface()->doAction(action);
    }
};

} // namespace

TEST_F(AccessibilityTest, NamesEveryControlOfEveryPaneAndItsRole) {
    setFull();
    offer();
    open(Pane::Now);
    const std::map<QString, QAccessible::Role> roles{{QStringLiteral("ZenButton"), QAccessible::Button},
                                                     {QStringLiteral("ZenSwitch"), QAccessible::CheckBox},
                                                     {QStringLiteral("ZenSelect"), QAccessible::ComboBox},
                                                     {QStringLiteral("ZenInput"), QAccessible::EditableText},
                                                     {QStringLiteral("MacSidebarItem"), QAccessible::PageTab}};
    std::set<QString> found;
    for (const auto pane : allPanes) {
        navigation.setPane(pane);
        for (const auto &[type, role] : roles) {
            for (auto *control : all(type.toUtf8().constData())) {
                found.insert(type);
                EXPECT_EQ(WindowTest::role(control), role) << type.toStdString();
                EXPECT_FALSE(name(control).isEmpty()) << type.toStdString();
            }
        }
    }
    EXPECT_EQ(found.size(), roles.size());
}

TEST_F(AccessibilityTest, SaysEverythingThatTheNowPaneShows) {
    setFull([](Snapshot &snapshot) { snapshot.heard->back().at = 1'800'000'000'000; });
    open(Pane::Now);
    const auto lines = tree();
    const auto at = [&](const char *line) {
        const auto index = lines.indexOf(QString::fromUtf8(line));
        EXPECT_GE(index, 0) << line << " is not in\n" << lines.join(u'\n').toStdString();
        return index;
    };
    EXPECT_LT(at("Heading: Now"), at("Button: Listen"));
    EXPECT_LT(at("Button: Listen"), at("StaticText: State: Speaking. Speak to interrupt")) << "the header first";
    EXPECT_LT(at("StaticText: State: Speaking. Speak to interrupt"), at("Heading: Last answer"));
    EXPECT_LT(at("Heading: Last answer"), at("ListItem: You: How is the site's deploy going? 19:46 1.8 s"));
    EXPECT_LT(at("ListItem: You: How is the site's deploy going? 19:46 1.8 s"),
              at("EditableText: Type a request instead"));
    EXPECT_LT(at("EditableText: Type a request instead"), at("Heading: Draft"));
    at("StaticText: Microphone: USB Audio. The input in use");
    at("List: Conversation");
    at("ListItem: You: How is the site's deploy going? 19:46 1.8 s");
    at("ListItem: 08:00 Ignored did you see the game not directed");
}

TEST_F(AccessibilityTest, SaysTheRowsOfALongConversationInTheirOrderAlsoAfterScrolling) {
    setFull([](Snapshot &snapshot) {
        snapshot.conversation.rows.clear();
        for (int turn = 0; turn < 400; ++turn)
            snapshot.conversation.rows.push_back(row("user", QStringLiteral("turn %1").arg(turn)));
    });
    open(Pane::Now);
    const auto turns = [this] {
        std::vector<int> numbers;
        for (const auto &line : tree()) {
            if (line.startsWith(QStringLiteral("ListItem: You: turn ")))
                numbers.push_back(line.section(u' ', 3, 3).toInt());
        }
        return numbers;
    };
    const auto follow = [](const std::vector<int> &numbers) {
        for (std::size_t at = 1; at < numbers.size(); ++at) {
            if (numbers[at] != numbers[at - 1] + 1)
                return false;
        }
        return numbers.size() > 4;
    };
    for (const auto way : {Qt::Key_PageUp, Qt::Key_PageUp, Qt::Key_Home, Qt::Key_PageDown, Qt::Key_Up, Qt::Key_End}) {
        first("NowPage")->forceActiveFocus();
        key(way);
        EXPECT_TRUE(eventually([&] { return follow(turns()); })) << way << ": " << ::testing::PrintToString(turns());
    }
}

TEST_F(AccessibilityTest, SaysTheNotesAndTheValuesThatCannotBeChanged) {
    setFull();
    offer();
    open(Pane::Brain);
    const auto lines = tree();
    EXPECT_TRUE(lines.contains(QStringLiteral("StaticText: ") + L("brain.note"))) << lines.join(u'\n').toStdString();
    EXPECT_TRUE(lines.contains(QStringLiteral("StaticText: ") + L("brain.whenDown") + QStringLiteral(": ") +
                               L("brain.whenDown.value")));
    EXPECT_TRUE(lines.contains(QStringLiteral("StaticText: /code: ") + L("brain.always")))
        << lines.join(u'\n').toStdString();
    navigation.setPane(Pane::History);
    EXPECT_TRUE(tree().contains(QStringLiteral("StaticText: ") + L("history.note")));
}

TEST_F(AccessibilityTest, HasAHeadingForTheActionsOnlyWhereThereAreAny) {
    setFull();
    open(Pane::Brain);
    const auto heading = QStringLiteral("Heading: ") + L("brain.confirmBlock");
    EXPECT_FALSE(tree().contains(heading));
    offer();
    EXPECT_TRUE(tree().contains(heading));
}

TEST_F(AccessibilityTest, SaysWhereASwitchStandsAndTurnsIt) {
    setFull();
    open(Pane::Listening);
    auto *echo = named("ZenSwitch", QStringLiteral("Echo cancellation"));
    EXPECT_TRUE(state(echo).checkable);
    EXPECT_TRUE(state(echo).checked);
    EXPECT_TRUE(description(echo).startsWith(QStringLiteral("On. ")));
    act(echo, QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(toldSetting(), R"({"isEchoCancelOn":false})");
    setFull([](Snapshot &snapshot) { snapshot.settings.isEchoCancelOn = false; });
    EXPECT_FALSE(state(echo).checked);
    EXPECT_TRUE(description(echo).startsWith(QStringLiteral("Off. ")));
}

TEST_F(AccessibilityTest, SaysWhetherAnActionIsConfirmed) {
    setFull();
    offer();
    open(Pane::Brain);
    EXPECT_EQ(description(named("ZenSwitch", model().options()->confirmActions[0].label)),
              QStringLiteral("Asks first"));
}

TEST_F(AccessibilityTest, SaysTheValueOfASelectAndMarksTheChoiceInItsList) {
    setFull([](Snapshot &snapshot) { snapshot.settings.voiceSpeed = 1.25; });
    open(Pane::Voice);
    auto *speed = named("ZenSelect", QStringLiteral("Speed"));
    EXPECT_EQ(description(speed), QStringLiteral("1.25×"));
    act(speed, QAccessibleActionInterface::pressAction());
    ASSERT_EQ(all("SelectList").size(), 1);
    EXPECT_EQ(role(all("SelectList").first()), QAccessible::List);
    int selected = 0;
    for (auto *choice : Scene::all(all("SelectList").first(), "Pressable")) {
        EXPECT_EQ(role(choice), QAccessible::ListItem);
        selected += state(choice).selected ? 1 : 0;
        EXPECT_EQ(state(choice).selected, name(choice) == QStringLiteral("1.25×"));
    }
    EXPECT_EQ(selected, 1);
}

TEST_F(AccessibilityTest, SaysThatASettingIsBeingApplied) {
    backend().hang("/settings");
    setFull();
    open(Pane::Listening);
    app.listening()->microphone()->pick(QStringLiteral("USB Audio"));
    EXPECT_TRUE(description(named("ZenSelect", QStringLiteral("Microphone"))).startsWith(QStringLiteral("Applying…")));
}

TEST_F(AccessibilityTest, SaysTheShortcutInWordsAndThatItIsRecorded) {
    setFull();
    open(Pane::Listening);
    auto *recorder = named("Pressable", QStringLiteral("Listen"));
    EXPECT_TRUE(description(recorder).startsWith(QStringLiteral("Alt + Space. ")));
    act(recorder, QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(description(recorder).startsWith(L("recorder.type")));
    app.listening()->listenShortcut()->handle(0, 0);
    EXPECT_TRUE(description(recorder).contains(L("recorder.needsModifier")));
}

TEST_F(AccessibilityTest, SaysWhichPaneIsChosen) {
    open(Pane::Voice);
    EXPECT_TRUE(state(named("MacSidebarItem", QStringLiteral("Voice"))).selected);
    EXPECT_FALSE(state(named("MacSidebarItem", QStringLiteral("Now"))).selected);
}

TEST_F(AccessibilityTest, RaisesAnAlertForEveryStateAndForNothingElse) {
    setState("waiting");
    open(Pane::Now);
    EXPECT_EQ(notifications + alerts, QStringList()) << "what is there already is not news";
    setState("listening");
    setState("listening");
    setState("thinking");
    model().setSnapshot(nullptr);
    ASSERT_EQ(alerts.size(), 3) << alerts.join(u'|').toStdString();
    EXPECT_TRUE(alerts[0].startsWith(QStringLiteral("Listening")));
    EXPECT_TRUE(alerts[1].startsWith(QStringLiteral("Thinking")));
    EXPECT_TRUE(alerts[2].startsWith(QStringLiteral("Offline")));
    EXPECT_EQ(notifications, alerts);
}

TEST_F(AccessibilityTest, StandsStillWithReducedMotion) {
    setState("thinking");
    Wishes::of(engine).setMotionReduced(true);
    open(Pane::Now);
    auto *steps = Scene::all(first("StateCells"), "Steps").value(0);
    ASSERT_TRUE(steps);
    EXPECT_EQ(steps->property("current"), 1);
    const auto running = [](const QObject *of) {
        int count = 0;
        for (const auto *child : of->findChildren<QObject *>())
            if (child->inherits("QQmlTimer") || child->inherits("QQuickAbstractAnimation"))
                count += child->property("running").toBool() ? 1 : 0;
        return count;
    };
    EXPECT_EQ(running(steps), 0);
    Wishes::of(engine).setMotionReduced(false);
    EXPECT_EQ(running(steps), 1);
    window->hide();
    EXPECT_EQ(running(steps), 0) << "nothing moves in what is hidden";
}

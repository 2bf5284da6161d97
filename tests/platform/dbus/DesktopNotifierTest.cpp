#include "platform/dbus/DesktopNotifier.h"

#include "tests/support/Eventually.h"
#include "tests/support/PrivateBus.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusVirtualObject>

#include <gtest/gtest.h>

using namespace palomet;
using namespace Qt::StringLiterals;
using test::eventually;

namespace {

const auto service = u"org.freedesktop.Notifications"_s;
const auto path = u"/org/freedesktop/Notifications"_s;

/// The desktop's part, which the test plays.
class NotificationServer final : public QDBusVirtualObject {
public:
    explicit NotificationServer(const QDBusConnection &bus)
        : m_bus(bus) {
        m_bus.registerVirtualObject(path, this);
        m_bus.registerService(service);
    }
    ~NotificationServer() override {
        m_bus.unregisterService(service);
        m_bus.unregisterObject(path);
    }

    QString introspect(const QString & /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection & /*bus*/) override {
        if (message.member() == u"CloseNotification") {
            closed.append(message.arguments().value(0).toUInt());
            return m_bus.send(message.createReply());
        }
        if (message.member() != u"Notify")
            return false;
        calls.append(message);
        if (isSlow)
            return true;
        return answer();
    }

    bool answer(qsizetype index = -1) {
        const auto &call = index < 0 ? calls.back() : calls[index];
        const auto replaced = call.arguments().value(1).toUInt();
        return m_bus.send(call.createReply(replaced != 0 ? replaced : ++m_number));
    }

    void signal(const QString &name, const QVariantList &arguments) {
        auto message = QDBusMessage::createSignal(path, service, name);
        message.setArguments(arguments);
        m_bus.send(message);
    }

    bool isSlow = false;
    QList<QDBusMessage> calls;
    QList<uint> closed;

private:
    QDBusConnection m_bus;
    uint m_number = 40;
};

struct Choice {
    quint32 id = 0;
    QString activation;

    bool operator==(const Choice &) const = default;
};

class DesktopNotifierTest : public ::testing::Test {
protected:
    DesktopNotifierTest() {
        notifier.onChosen = [this](quint32 id, const QString &activation) { choices.push_back({id, activation}); };
    }

    /// Shows it, and waits until the desktop's answer is there.
    void show(quint32 id) {
        const auto before = server.calls.size();
        notifier.show(id, notice);
        ASSERT_TRUE(eventually([&] { return server.calls.size() > before; }));
        settle();
    }

    /// What either side has sent until now has come: messages do not overtake each other.
    void settle() {
        const auto last = QDBusMessage::createMethodCall(service, path, service, u"Last"_s);
        const QDBusPendingCall answer = client.asyncCall(last);
        EXPECT_TRUE(eventually([&] { return answer.isFinished(); }));
        QCoreApplication::processEvents();
    }

    const Notifier::Notice notice{u"A title"_s, u"A text < 1 & 2"_s, u"Show"_s};
    test::PrivateBus bus;
    NotificationServer server{bus.connect()};
    QDBusConnection client = bus.connect();
    DesktopNotifier notifier{client, u"org.palomet.Palomet"_s};
    std::vector<Choice> choices;
};

} // namespace

TEST_F(DesktopNotifierTest, ShowsANoticeWithItsButtonInTheProgramsName) {
    show(2);
    const auto arguments = server.calls.front().arguments();
    ASSERT_EQ(arguments.size(), 8);
    EXPECT_EQ(arguments[0], u"Palomet"_s);
    EXPECT_EQ(arguments[1], 0U);
    EXPECT_EQ(arguments[2], u"org.palomet.Palomet"_s);
    EXPECT_EQ(arguments[3], u"A title"_s);
    EXPECT_EQ(arguments[4], u"A text &lt; 1 &amp; 2"_s);
    EXPECT_EQ(arguments[5].toStringList(), (QStringList{u"default"_s, QString(), u"open"_s, u"Show"_s}))
        << "a name of it would be one more button";
    const auto hints = qdbus_cast<QVariantMap>(arguments[6]);
    EXPECT_EQ(hints[u"desktop-entry"_s], u"org.palomet.Palomet"_s);
    EXPECT_EQ(hints[u"urgency"_s].typeId(), QMetaType::UChar);
    EXPECT_EQ(arguments[7], -1);
    EXPECT_EQ(server.calls.front().signature(), u"susssasa{sv}i"_s);
}

TEST_F(DesktopNotifierTest, TellsOfAClickOnTheNoticeAndOnItsButton) {
    for (const auto &action : {u"default"_s, u"open"_s}) {
        choices.clear();
        show(2);
        const auto number = 40 + static_cast<uint>(server.calls.size());
        server.signal(u"ActivationToken"_s, {number, u"token"_s});
        server.signal(u"ActionInvoked"_s, {number, action});
        EXPECT_TRUE(eventually([this] { return !choices.empty(); }));
        EXPECT_EQ(choices, (std::vector<Choice>{{2, u"token"_s}}));
        EXPECT_TRUE(eventually([&] { return server.closed.contains(number); }));
    }
}

TEST_F(DesktopNotifierTest, TellsOfItWithoutATokenWhereTheDesktopGivesNone) {
    show(0);
    server.signal(u"ActionInvoked"_s, {41U, u"open"_s});
    EXPECT_TRUE(eventually([this] { return !choices.empty(); }));
    EXPECT_EQ(choices, (std::vector<Choice>{{0, {}}}));
}

TEST_F(DesktopNotifierTest, TellsNothingOfTheNoticesOfOthers) {
    show(2);
    server.signal(u"ActionInvoked"_s, {7U, u"default"_s});
    server.signal(u"ActionInvoked"_s, {0U, u"default"_s});
    server.signal(u"ActionInvoked"_s, {41U, u"something-else"_s});
    settle();
    EXPECT_TRUE(choices.empty());
}

TEST_F(DesktopNotifierTest, ShowsANewNoticeInThePlaceOfTheOld) {
    show(2);
    show(2);
    EXPECT_EQ(server.calls.back().arguments().value(1).toUInt(), 41U);
    show(1);
    EXPECT_EQ(server.calls.back().arguments().value(1).toUInt(), 0U);
}

TEST_F(DesktopNotifierTest, TakesANoticeAway) {
    show(2);
    notifier.withdraw(2);
    EXPECT_TRUE(eventually([this] { return server.closed == QList<uint>{41}; }));
    notifier.withdraw(2);
    notifier.withdraw(1);
    settle();
    EXPECT_EQ(server.closed, QList<uint>{41});
}

TEST_F(DesktopNotifierTest, TakesANoticeAwayThatTheDesktopHasNotAnsweredForYet) {
    server.isSlow = true;
    show(2);
    notifier.withdraw(2);
    server.answer();
    EXPECT_TRUE(eventually([this] { return server.closed == QList<uint>{41}; }));
}

TEST_F(DesktopNotifierTest, LeavesTheLastOneThereOfSeveralThatTheDesktopHasNotAnsweredForYet) {
    server.isSlow = true;
    show(2);
    notifier.withdraw(2);
    show(2);
    server.answer(0);
    server.answer(1);
    EXPECT_TRUE(eventually([this] { return server.closed == QList<uint>{41}; }));
    server.signal(u"ActionInvoked"_s, {42U, u"open"_s});
    EXPECT_TRUE(eventually([this] { return !choices.empty(); }));
}

TEST_F(DesktopNotifierTest, ForgetsANoticeThatTheUserClosed) {
    show(2);
    server.signal(u"NotificationClosed"_s, {41U, 2U});
    settle();
    notifier.withdraw(2);
    show(2);
    EXPECT_TRUE(server.closed.isEmpty());
    EXPECT_EQ(server.calls.back().arguments().value(1).toUInt(), 0U);
}

TEST(DesktopNotifierAlone, DoesNothingWithoutABusOrADesktopThatShowsNotices) {
    test::PrivateBus bus;
    DesktopNotifier alone(bus.connect(), u"org.palomet.Palomet"_s);
    DesktopNotifier nowhere(QDBusConnection::connectToBus(u"unix:path=/nowhere"_s, u"no bus for notices"_s), u""_s);
    for (auto *notifier : {&alone, &nowhere}) {
        notifier->show(1, {u"title"_s, u"text"_s, u"button"_s});
        notifier->withdraw(1);
    }
    QCoreApplication::processEvents();
}

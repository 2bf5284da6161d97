#include "platform/dbus/DBusRemoteClient.h"
#include "platform/dbus/DBusRemoteService.h"
#include "platform/dbus/SessionBus.h"
#include "tests/support/Eventually.h"
#include "tests/support/PrivateBus.h"
#include "tests/support/Processes.h"

#include <QDBusConnectionInterface>
#include <QDBusReply>

#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <thread>
#include <vector>

using namespace palomet;
using namespace Qt::StringLiterals;

namespace {

class DBusRemoteTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_FALSE(bus.address().isEmpty());
        service.onCommand = [this](const RemoteCommand &command) {
            commands.push_back(command);
            if (command.action == u"act"_s)
                return RemoteOutcome::Busy;
            return command.action == u"dance"_s ? RemoteOutcome::Unknown : RemoteOutcome::Done;
        };
        service.onActivate = [this](const QString &token) {
            ++activations;
            activation = token;
        };
    }

    /// Does what a program of its own would: it waits for its answers, while the service goes on here.
    template <typename Work>
    void asAnotherProgram(Work work) {
        std::atomic<bool> isDone = false;
        std::thread thread([&] {
            work();
            isDone = true;
        });
        EXPECT_TRUE(test::eventually([&] { return isDone.load(); }));
        thread.join();
    }

    test::PrivateBus bus;
    DBusRemoteService service{bus.connect()};
    QDBusConnection clientBus = bus.connect();
    std::vector<RemoteCommand> commands;
    int activations = 0;
    QString activation;
};

} // namespace

TEST_F(DBusRemoteTest, CarriesACommandAndItsTextToTheRunningInstance) {
    ASSERT_EQ(service.claim({}), RemoteService::Claim::Primary);
    const RemoteCommand say{u"say"_s, u"“olá” & <b>tudo</b>"_s};
    asAnotherProgram([&] {
        DBusRemoteClient client(clientBus);
        EXPECT_EQ(client.send({u"listen"_s, std::nullopt}), std::nullopt);
        EXPECT_EQ(client.send(say), std::nullopt);
    });
    EXPECT_EQ(commands, std::vector<RemoteCommand>({{u"listen"_s, std::nullopt}, say}));
}

TEST_F(DBusRemoteTest, CarriesAMebibyteOfText) {
    ASSERT_EQ(service.claim({}), RemoteService::Claim::Primary);
    const QString text(1024 * 1024, u'a');
    asAnotherProgram([&] {
        DBusRemoteClient client(clientBus);
        EXPECT_EQ(client.send({u"say"_s, text}), std::nullopt);
    });
    ASSERT_EQ(commands.size(), 1U);
    EXPECT_EQ(commands[0].text, text);
}

TEST_F(DBusRemoteTest, SaysWhyACommandWasRefused) {
    ASSERT_EQ(service.claim({}), RemoteService::Claim::Primary);
    asAnotherProgram([&] {
        DBusRemoteClient client(clientBus);
        const auto problem = client.send({u"dance"_s, std::nullopt});
        ASSERT_TRUE(problem);
        EXPECT_EQ(problem->reason, u"no such action: dance"_s);
        const auto busy = client.send({u"act"_s, std::nullopt});
        ASSERT_TRUE(busy);
        EXPECT_EQ(busy->reason, u"too many commands are waiting for the backend"_s);
    });
}

TEST_F(DBusRemoteTest, SaysThatNoneRuns) {
    DBusRemoteClient client(clientBus);
    EXPECT_EQ(client.send({u"listen"_s, std::nullopt})->reason, u"Palomet is not running"_s);
    EXPECT_FALSE(client.status());
    EXPECT_TRUE(client.waitUntilGone(std::chrono::milliseconds{0}));
}

TEST_F(DBusRemoteTest, SaysThatThereIsNoBus) {
    const auto nowhere = QDBusConnection::connectToBus(u"unix:path=/nonexistent"_s, u"nowhere"_s);
    DBusRemoteClient client(nowhere);
    EXPECT_EQ(client.send({u"listen"_s, std::nullopt})->reason, u"there is no session bus"_s);
    DBusRemoteService alone(nowhere);
    EXPECT_EQ(alone.claim({}), RemoteService::Claim::Absent);
    alone.publish({u"waiting"_s, {}, false, true});
}

TEST_F(DBusRemoteTest, LetsOneInstanceRunAndShowsItInsteadOfASecond) {
    ASSERT_EQ(service.claim({}), RemoteService::Claim::Primary);
    asAnotherProgram([&] {
        DBusRemoteService second(clientBus);
        EXPECT_EQ(second.claim({}), RemoteService::Claim::Taken);
    });
    EXPECT_TRUE(test::eventually([&] { return activations == 1; }));
}

TEST_F(DBusRemoteTest, HandsOnWhatTheDesktopGaveSoThatAWindowMayComeToTheFront) {
    ASSERT_EQ(service.claim({}), RemoteService::Claim::Primary);
    asAnotherProgram([&] {
        DBusRemoteClient client(clientBus);
        EXPECT_EQ(client.send({u"open"_s, u"voice"_s, u"token 1"_s}), std::nullopt);
        DBusRemoteService second(clientBus);
        EXPECT_EQ(second.claim(u"token 2"_s), RemoteService::Claim::Taken);
    });
    EXPECT_EQ(commands, std::vector<RemoteCommand>({{u"open"_s, u"voice"_s, u"token 1"_s}}));
    EXPECT_TRUE(test::eventually([&] { return activation == u"token 2"_s; }));
}

TEST_F(DBusRemoteTest, TakesWhatALauncherGivesUnderEitherName) {
    ASSERT_EQ(service.claim({}), RemoteService::Claim::Primary);
    const auto launch = [&](const QVariantMap &platformData) {
        const int before = activations;
        auto call = QDBusMessage::createMethodCall(u"org.palomet.Palomet"_s, u"/org/palomet/Palomet"_s,
                                                   u"org.freedesktop.Application"_s, u"Activate"_s);
        call.setArguments({platformData});
        clientBus.send(call);
        EXPECT_TRUE(test::eventually([&] { return activations == before + 1; }));
        return activation;
    };
    EXPECT_EQ(launch({{u"desktop-startup-id"_s, u"shell_TIME7"_s}}), u"shell_TIME7"_s);
    EXPECT_EQ(launch({{u"activation-token"_s, u"token"_s}, {u"desktop-startup-id"_s, u"id"_s}}), u"token"_s);
    EXPECT_EQ(launch({{u"activation-token"_s, QString(100'000, u'x')}}), QString());
    EXPECT_EQ(launch({{u"activation-token"_s, QStringList{u"a"_s}}}), QString());
    EXPECT_EQ(launch({}), QString());
}

TEST_F(DBusRemoteTest, TellsTheStatusAndItsChanges) {
    ASSERT_EQ(service.claim({}), RemoteService::Claim::Primary);
    const RemoteStatus waiting{u"waiting"_s, u"USB “Audio”"_s, false, true};
    const RemoteStatus muted{u"muted"_s, u"USB “Audio”"_s, true, true};
    service.publish(waiting);
    asAnotherProgram([&] {
        DBusRemoteClient client(clientBus);
        const auto status = client.status();
        ASSERT_TRUE(status);
        EXPECT_EQ(*status, waiting);
    });

    // Only the question waits for its answer; the changes come by this thread's event loop.
    std::vector<RemoteStatus> seen;
    DBusRemoteClient client(clientBus);
    asAnotherProgram([&] {
        EXPECT_EQ(client.follow([&](const RemoteStatus &status) { seen.push_back(status); }, [] {}), std::nullopt);
    });
    service.publish(waiting); // Not a change.
    service.publish(muted);
    EXPECT_TRUE(test::eventually([&] { return seen.size() == 2; }));
    EXPECT_EQ(seen, std::vector<RemoteStatus>({waiting, muted}));
}

TEST_F(DBusRemoteTest, KnowsWhenTheRunningInstanceHasEnded) {
    auto running = std::make_unique<DBusRemoteService>(bus.connect());
    ASSERT_EQ(running->claim({}), RemoteService::Claim::Primary);
    DBusRemoteClient client(clientBus);
    bool isGone = false;
    asAnotherProgram(
        [&] { EXPECT_EQ(client.follow([](const RemoteStatus &) {}, [&] { isGone = true; }), std::nullopt); });
    EXPECT_FALSE(client.waitUntilGone(std::chrono::milliseconds{1}));
    running.reset();
    EXPECT_TRUE(client.waitUntilGone(std::chrono::seconds{10}));
    EXPECT_TRUE(test::eventually([&] { return isGone; }));
}

TEST_F(DBusRemoteTest, TakesItsPlaceOnTheNextBusWhenItsOwnHasEnded) {
    DBusRemoteService lasting(
        bus.connect(),
        [this] {
            const auto next = bus.connect();
            return next.isConnected() ? std::optional(next) : std::nullopt;
        },
        std::chrono::milliseconds{10});
    int activationsThere = 0;
    lasting.onActivate = [&](const QString &) { ++activationsThere; };
    lasting.onReplaced = [] { ADD_FAILURE() << "there is no other one"; };
    ASSERT_EQ(lasting.claim({}), RemoteService::Claim::Primary);
    const RemoteStatus muted{u"muted"_s, {}, true, true};
    lasting.publish(muted);
    for (int round = 0; round < 3; ++round) {
        bus.end();
        bus.beginAgain();
        const auto other = bus.connect();
        ASSERT_TRUE(
            test::eventually([&] { return other.interface()->isServiceRegistered(u"org.palomet.Palomet"_s).value(); }));
        asAnotherProgram([&] {
            DBusRemoteClient client(other);
            const auto status = client.status();
            ASSERT_TRUE(status);
            EXPECT_EQ(*status, muted);
            DBusRemoteService second(other);
            EXPECT_EQ(second.claim({}), RemoteService::Claim::Taken);
        });
        EXPECT_TRUE(test::eventually([&] { return activationsThere == round + 1; }));
    }
}

TEST_F(DBusRemoteTest, SaysThatItWasReplacedWhenAnotherOneWasFirstOnTheNextBus) {
    std::optional<QDBusConnection> next;
    DBusRemoteService first(
        bus.connect(), [&] { return next; }, std::chrono::milliseconds{10});
    int replacements = 0;
    first.onReplaced = [&] { ++replacements; };
    ASSERT_EQ(first.claim({}), RemoteService::Claim::Primary);
    bus.end();
    bus.beginAgain();
    int activationsOfSecond = 0;
    DBusRemoteService second(bus.connect());
    second.onActivate = [&](const QString &) { ++activationsOfSecond; };
    ASSERT_EQ(second.claim({}), RemoteService::Claim::Primary);
    next = bus.connect();
    EXPECT_TRUE(test::eventually([&] { return replacements == 1; }));
    QCoreApplication::processEvents();
    EXPECT_EQ(activationsOfSecond, 0) << "nobody asked to see anything";
}

TEST_F(DBusRemoteTest, DoesNotWaitForABusThatHangsWhenItEnds) {
    auto running = std::make_unique<DBusRemoteService>(bus.connect());
    ASSERT_EQ(running->claim({}), RemoteService::Claim::Primary);
    bus.hang();
    // A call that waits for its answer does so for 25 seconds; the alarm would end the test.
    alarm(10);
    running.reset();
    alarm(0);
}

TEST(SessionBus, AnswersWhereThereIsOneAndNotWhereItHangsOrHasGone) {
    test::PrivateBus bus;
    const test::EnvironmentVariable address("DBUS_SESSION_BUS_ADDRESS", bus.address().toLatin1());
    EXPECT_TRUE(sessionBusAnswers(std::chrono::seconds{20}));
    bus.hang();
    EXPECT_FALSE(sessionBusAnswers(std::chrono::milliseconds{50}));
    bus.end();
    EXPECT_FALSE(sessionBusAnswers(std::chrono::seconds{20}));
    EXPECT_FALSE(connectToSessionBusAgain());
    bus.beginAgain();
    EXPECT_TRUE(sessionBusAnswers(std::chrono::seconds{20}));
    const auto again = connectToSessionBusAgain();
    ASSERT_TRUE(again);
    QDBusConnection::disconnectFromBus(again->name());
    const test::EnvironmentVariable elsewhere("DBUS_SESSION_BUS_ADDRESS", "tcp:host=nowhere");
    EXPECT_TRUE(sessionBusAnswers(std::chrono::milliseconds{50})) << "who cannot be looked at is believed";
}

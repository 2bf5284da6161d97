#include "tests/model/ModelTest.h"

#include <QJsonArray>

#include <algorithm>
#include <limits>

using namespace palomet;
using namespace palomet::test;
using namespace std::chrono_literals;

namespace {

class CommandsTest : public ModelTest {
protected:
    CommandsTest() {
        for (const auto *target :
             {"/listen", "/stop", "/mute", "/new", "/sample", "/say", "/act", "/draft/clear", "/settings"})
            m_backend.serve(target, "{}");
    }

    /// Waits for the one command to come, and for the fetch of the state that follows it.
    Exchange commandTo(const QByteArray &target) {
        EXPECT_TRUE(hasCome(target)) << target.toStdString();
        EXPECT_TRUE(isRefreshed());
        EXPECT_EQ(m_backend.count(target), 1);
        return m_backend.last(target);
    }

    /// Waits until a command has ended, which asks for the state a tenth of a second later, and moves the clock there.
    [[nodiscard]] bool hasEnded() {
        const bool isAsked = eventually([&] { return m_scheduler.untilNext() == 100ms; });
        m_scheduler.advance(100ms);
        return isAsked;
    }

    [[nodiscard]] bool isRefreshed() {
        const int before = m_backend.count("/state");
        return hasEnded() && hasCome("/state", before + 1);
    }
};

} // namespace

TEST_F(CommandsTest, ACommandWithoutABodyIsAPostWithoutAContentType) {
    const std::pair<void (PalometModel::*)(), const char *> commands[] = {
        {&PalometModel::listen, "/listen"},         {&PalometModel::stop, "/stop"},
        {&PalometModel::toggleMute, "/mute"},       {&PalometModel::newConversation, "/new"},
        {&PalometModel::sample, "/sample"},         {&PalometModel::act, "/act"},
        {&PalometModel::clearDraft, "/draft/clear"}};
    for (const auto &[command, target] : commands) {
        (m_model.*command)();
        const auto exchange = commandTo(target);
        EXPECT_TRUE(exchange->bytes().startsWith(QByteArray("POST ") + target + " HTTP/1.1\r\n"));
        EXPECT_EQ(exchange->body(), QByteArray());
        EXPECT_EQ(exchange->header("content-type"), std::nullopt) << exchange->bytes().toStdString();
        EXPECT_EQ(exchange->header("content-length"), "0");
        EXPECT_TRUE(exchange->bytes().endsWith("\r\n\r\n"));
    }
}

TEST_F(CommandsTest, SayPostsTheTextAsJson) {
    m_model.say(QStringLiteral("oi"));
    const auto exchange = commandTo("/say");
    EXPECT_EQ(exchange->method(), "POST");
    EXPECT_EQ(exchange->header("content-type"), "application/json");
    EXPECT_EQ(exchange->header("content-length"), "13");
    EXPECT_EQ(exchange->body(), R"({"text":"oi"})");
}

TEST_F(CommandsTest, SayPostsALongTextWhole) {
    const QString text = QStringLiteral("Olá! ").repeated(200'000);
    m_model.say(text);
    EXPECT_EQ(commandTo("/say")->body(), "{\"text\":\"" + text.toUtf8() + "\"}");
}

TEST_F(CommandsTest, ASettingIsAppliedUntilItsReply) {
    m_backend.hang("/settings");
    const SignalCount changes(&m_model, &PalometModel::applyingChanged);
    m_model.set(QStringLiteral("summonMs"), 8000);
    EXPECT_EQ(m_model.applying(), QStringLiteral("summonMs"));
    ASSERT_TRUE(hasCome("/settings"));
    const auto exchange = m_backend.last("/settings");
    EXPECT_EQ(exchange->method(), "POST");
    EXPECT_EQ(exchange->header("content-type"), "application/json");
    EXPECT_EQ(exchange->body(), R"({"summonMs":8000})");
    EXPECT_EQ(m_model.applying(), QStringLiteral("summonMs"));
    EXPECT_EQ(m_backend.count("/state"), 0);
    exchange->reply("{}");
    EXPECT_TRUE(eventually([&] { return !m_model.applying(); }));
    EXPECT_EQ(changes.count(), 2);
    EXPECT_TRUE(isRefreshed());
}

TEST_F(CommandsTest, TheFirstOfTwoSettingsToEndClearsWhatIsApplied) {
    m_backend.hang("/settings");
    m_model.set(QStringLiteral("summonMs"), 8000);
    m_model.set(QStringLiteral("folders"), QJsonArray{QStringLiteral("/code")});
    EXPECT_EQ(m_model.applying(), QStringLiteral("folders"));
    ASSERT_TRUE(hasCome("/settings", 2));
    m_backend.exchanges("/settings").front()->reply("{}");
    EXPECT_TRUE(eventually([&] { return !m_model.applying(); }));
}

TEST_F(CommandsTest, ASettingMayTakeAMinute) {
    m_backend.hang("/settings");
    m_model.set(QStringLiteral("whisperModel"), QStringLiteral("large-v3-turbo"));
    ASSERT_TRUE(hasCome("/settings"));
    m_scheduler.advance(59'999ms);
    EXPECT_TRUE(m_model.applying());
    m_scheduler.advance(1ms);
    EXPECT_FALSE(m_model.applying());
    EXPECT_TRUE(isRefreshed());
}

TEST_F(CommandsTest, AValueThatJsonCannotSayIsSentAsNoBody) {
    m_model.set(QStringLiteral("voiceSpeed"), std::numeric_limits<double>::quiet_NaN());
    const auto exchange = commandTo("/settings");
    EXPECT_EQ(exchange->header("content-type"), "application/json");
    EXPECT_EQ(exchange->body(), QByteArray());
}

TEST_F(CommandsTest, WhateverTheReplySaysTheStateIsFetched) {
    for (const int status : {200, 204, 302, 401, 404, 500}) {
        m_backend.serve("/listen", status == 204 ? "" : "not even JSON", status);
        m_model.listen();
        EXPECT_TRUE(isRefreshed()) << status;
    }
    EXPECT_EQ(m_backend.count("/listen"), 6);
}

TEST_F(CommandsTest, ACommandToADeadBackendStillCostsOneFetch) {
    m_model.setSnapshot(std::make_shared<const Snapshot>());
    m_backend.goDown();
    m_model.listen();
    ASSERT_TRUE(hasEnded());
    EXPECT_TRUE(eventually([&] { return !m_model.snapshot(); }));
    EXPECT_EQ(m_scheduler.pendingCount(), 0U);
}

TEST_F(CommandsTest, ACommandIsGivenUpAfterThreeSecondsHoweverSlowlyTheReplyDrips) {
    m_backend.on("/listen",
                 [](const Exchange &exchange) { exchange->write("HTTP/1.1 200 OK\r\ncontent-length: 99\r\n\r\n"); });
    m_model.listen();
    ASSERT_TRUE(hasCome("/listen"));
    for (int second = 0; second < 2; ++second) {
        m_scheduler.advance(1s);
        m_backend.last("/listen")->write("x");
    }
    m_scheduler.advance(999ms);
    EXPECT_EQ(m_scheduler.untilNext(), 1ms) << "it is still waited for";
    m_scheduler.advance(1ms);
    EXPECT_TRUE(isRefreshed());
    EXPECT_TRUE(eventually([&] { return !m_backend.last("/listen")->isOpen(); }));
}

TEST_F(CommandsTest, ACommandIsNeverSentTwice) {
    // Network stacks like to repeat this: a connection that ends after the request and before the reply.
    m_backend.on("/listen", [](const Exchange &exchange) { exchange->close(); });
    m_backend.on("/stop", [](const Exchange &exchange) { exchange->abort(); });
    m_backend.on("/say", [](const Exchange &exchange) { exchange->close(); });
    m_backend.on("/settings", [](const Exchange &exchange) { exchange->abort(); });
    m_backend.on("/act", [](const Exchange &exchange) { exchange->write("HTTP/1.1 200"), exchange->close(); });
    m_model.listen();
    m_model.stop();
    m_model.say(QStringLiteral("oi"));
    m_model.act();
    m_model.set(QStringLiteral("voiceSpeed"), 1);
    for (const auto *target : {"/listen", "/stop", "/say", "/settings", "/act"})
        ASSERT_TRUE(hasCome(target)) << target;
    ASSERT_TRUE(eventually([&] {
        if (m_scheduler.untilNext() <= 100ms)
            m_scheduler.advance(100ms);
        return m_scheduler.pendingCount() == 0;
    })) << "all have ended";
    EXPECT_EQ(m_backend.exchanges().size() - m_backend.exchanges("/state").size(), 5U);
}

TEST_F(CommandsTest, ACommandIsNotLostWhenTheBackendEndsIdleConnections) {
    for (int i = 0; i < 20; ++i) {
        m_backend.on("/listen", [](const Exchange &exchange) { exchange->reply("{}"), exchange->close(); });
        m_model.listen();
        ASSERT_TRUE(hasCome("/listen", i + 1));
        ASSERT_TRUE(isRefreshed());
    }
    EXPECT_EQ(m_backend.count("/listen"), 20);
}

TEST_F(CommandsTest, ACommandGoesOutAtOnceBesideAnyNumberThatHang) {
    for (const auto *target : {"/say", "/state", "/history", "/options", "/settings"})
        m_backend.hang(target);
    for (int i = 0; i < 10; ++i) {
        m_model.say(QString::number(i));
        m_model.loadHistory();
        m_model.loadOptions();
        m_model.set(QStringLiteral("voiceSpeed"), i);
        m_model.refresh();
        m_scheduler.advance(100ms);
    }
    ASSERT_TRUE(hasCome("/say", 10));
    m_model.stop();
    EXPECT_TRUE(hasCome("/stop"));
}

TEST_F(CommandsTest, OfMoreCommandsThanMayBeOnTheirWayTheLastAreNotSent) {
    m_backend.hang("/say");
    constexpr int most = HttpClient::maximumCommands;
    for (int i = 0; i < most + 10; ++i) {
        EXPECT_EQ(m_model.isBusy(), i >= most) << i;
        m_model.say(QString::number(i));
    }
    ASSERT_TRUE(hasCome("/say", most));
    m_scheduler.advance(3s);
    EXPECT_FALSE(m_model.isBusy());
    m_backend.serve("/stop", "{}");
    m_model.stop();
    EXPECT_TRUE(hasCome("/stop"));
    EXPECT_EQ(m_backend.count("/say"), most);
}

TEST_F(CommandsTest, SettingsThatHangLeaveRoomForCommands) {
    m_backend.hang("/settings");
    for (int i = 0; i < 100; ++i)
        m_model.set(QString::number(i), i);
    EXPECT_EQ(m_model.applying(), QString::number(HttpClient::maximumCommands - 1)) << "the last that was sent";
    EXPECT_FALSE(m_model.isBusy());
    m_model.stop();
    EXPECT_TRUE(hasCome("/stop"));
}

TEST_F(CommandsTest, CommandsThatHaveEndedLeaveFewConnectionsBehind) {
    // A backend that keeps its connections open.
    for (int i = 1; i <= 300; ++i) {
        m_model.listen();
        ASSERT_TRUE(hasCome("/listen", i));
    }
    EXPECT_TRUE(eventually([&] {
        const auto all = m_backend.exchanges("/listen");
        return std::ranges::count_if(all, [](const auto &exchange) { return exchange->isOpen(); }) <= 16;
    }));
}

#include "app/RemoteControl.h"

#include "model/PalometModel.h"
#include "tests/support/Eventually.h"
#include "tests/support/FakeMicrophonePermission.h"
#include "tests/support/FakeRemoteService.h"
#include "tests/support/Fixture.h"
#include "tests/support/ManualScheduler.h"
#include "tests/support/ScriptedBackend.h"

#include <gtest/gtest.h>

using namespace palomet;
using namespace std::chrono_literals;

namespace {

class RemoteControlTest : public testing::Test {
protected:
    RemoteOutcome tell(const char *action, std::optional<QString> text = std::nullopt) {
        return service.onCommand({QString::fromUtf8(action), std::move(text)});
    }

    test::ManualScheduler scheduler;
    test::FakeMicrophonePermission permission;
    test::ScriptedBackend backend;
    PalometModel model{scheduler, permission, backend.base()};
    test::FakeRemoteService service;
    RemoteControl control{service, model};
};

} // namespace

TEST_F(RemoteControlTest, PostsEachCommandAsTheMenuAndTheWindowDo) {
    const std::pair<const char *, const char *> commands[] = {{"listen", "/listen"}, {"stop", "/stop"},
                                                              {"mute", "/mute"},     {"new", "/new"},
                                                              {"act", "/act"},       {"clear-draft", "/draft/clear"}};
    for (const auto &[action, target] : commands) {
        EXPECT_EQ(tell(action), RemoteOutcome::Done) << action;
        EXPECT_TRUE(test::eventually([&, wanted = target] { return backend.count(wanted) == 1; })) << target;
        EXPECT_EQ(backend.last(target)->method(), "POST");
        EXPECT_EQ(backend.last(target)->body(), "");
    }
}

TEST_F(RemoteControlTest, SaysATextWithoutTheBlanksAroundIt) {
    EXPECT_EQ(tell("say", QStringLiteral(" olá \n")), RemoteOutcome::Done);
    EXPECT_TRUE(test::eventually([&] { return backend.count("/say") == 1; }));
    EXPECT_EQ(backend.last("/say")->body(), QStringLiteral("{\"text\":\"olá\"}").toUtf8());
}

TEST_F(RemoteControlTest, RefusesWhatIsTooMuchUntilTheBackendHasAnswered) {
    backend.hang("/listen");
    int sent = 0;
    while (tell("listen") == RemoteOutcome::Done)
        ASSERT_LT(++sent, 1000);
    EXPECT_EQ(tell("stop"), RemoteOutcome::Busy);
    EXPECT_EQ(tell("say", QStringLiteral("oi")), RemoteOutcome::Busy);
    EXPECT_EQ(tell("dance"), RemoteOutcome::Unknown);
    ASSERT_TRUE(test::eventually([&] { return backend.count("/listen") == sent; }));
    backend.last("/listen")->reply("{}");
    EXPECT_TRUE(test::eventually([&] { return tell("stop") == RemoteOutcome::Done; }));
    EXPECT_TRUE(test::eventually([&] { return backend.count("/stop") == 1; }));
    EXPECT_EQ(backend.count("/listen"), sent);
}

TEST_F(RemoteControlTest, RefusesWhatItDoesNotKnow) {
    EXPECT_EQ(tell("dance"), RemoteOutcome::Unknown);
    EXPECT_EQ(tell("say"), RemoteOutcome::Unknown);
    EXPECT_EQ(tell("say", QStringLiteral("  ")), RemoteOutcome::Unknown);
    EXPECT_EQ(tell("say", QString(1024 * 1024 + 1, u'a')), RemoteOutcome::Unknown);
    EXPECT_EQ(tell("settings"), RemoteOutcome::Unknown);
    EXPECT_TRUE(backend.exchanges().empty());
}

TEST_F(RemoteControlTest, OpensAndQuitsAsItIsTold) {
    std::optional<QString> opened = QStringLiteral("nothing");
    int quits = 0;
    control.onOpen = [&](const auto &pane) {
        opened = pane;
        return true;
    };
    control.onQuit = [&] { ++quits; };
    EXPECT_EQ(tell("open", QStringLiteral("voice")), RemoteOutcome::Done);
    EXPECT_EQ(opened, QStringLiteral("voice"));
    service.onActivate();
    EXPECT_EQ(opened, std::nullopt);
    EXPECT_EQ(tell("quit"), RemoteOutcome::Done);
    EXPECT_EQ(quits, 1);
}

TEST_F(RemoteControlTest, TellsTheStateAsItIs) {
    EXPECT_EQ(service.published, (RemoteStatus{QStringLiteral("offline"), {}, false, true}));
    backend.serve("/state", test::fixture("state/bare.json"));
    model.refresh();
    scheduler.advance(100ms);
    EXPECT_TRUE(test::eventually([&] { return model.snapshot() != nullptr; }));
    EXPECT_EQ(service.published.state, QStringLiteral("waiting"));
    EXPECT_EQ(service.published.device, model.snapshot()->device);
    model.setMicAuthorized(false);
    EXPECT_FALSE(service.published.isMicrophoneOn);
}

TEST_F(RemoteControlTest, TellsWhyTheListenKeyDoesNothing) {
    model.setHotKeyProblem(QStringLiteral("taken"));
    EXPECT_EQ(service.published.hotKeyProblem, QStringLiteral("taken"));
    model.setHotKeyProblem(std::nullopt);
    EXPECT_EQ(service.published.hotKeyProblem, QString());
}

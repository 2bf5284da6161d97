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
using namespace Qt::StringLiterals;

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
    EXPECT_EQ(tell("say", u" olá \n"_s), RemoteOutcome::Done);
    EXPECT_TRUE(test::eventually([&] { return backend.count("/say") == 1; }));
    EXPECT_EQ(backend.last("/say")->body(), u"{\"text\":\"olá\"}"_s.toUtf8());
}

TEST_F(RemoteControlTest, RefusesWhatIsTooMuchUntilTheBackendHasAnswered) {
    backend.hang("/listen");
    int sent = 0;
    while (tell("listen") == RemoteOutcome::Done)
        ASSERT_LT(++sent, 1000);
    EXPECT_EQ(tell("stop"), RemoteOutcome::Busy);
    EXPECT_EQ(tell("say", u"oi"_s), RemoteOutcome::Busy);
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
    EXPECT_EQ(tell("say", u"  "_s), RemoteOutcome::Unknown);
    EXPECT_EQ(tell("say", QString(1024 * 1024 + 1, u'a')), RemoteOutcome::Unknown);
    EXPECT_EQ(tell("settings"), RemoteOutcome::Unknown);
    EXPECT_TRUE(backend.exchanges().empty());
}

TEST_F(RemoteControlTest, OpensAndQuitsAsItIsTold) {
    std::optional<QString> opened = u"nothing"_s;
    QString activated;
    int quits = 0;
    control.onOpen = [&](const auto &pane, const auto &activation) {
        opened = pane;
        activated = activation;
        return true;
    };
    control.onQuit = [&] { ++quits; };
    EXPECT_EQ(tell("open", u"voice"_s), RemoteOutcome::Done);
    EXPECT_EQ(opened, u"voice"_s);
    EXPECT_EQ(service.onCommand({u"open"_s, u"voice"_s, u"token 1"_s}), RemoteOutcome::Done);
    EXPECT_EQ(activated, u"token 1"_s);
    service.onActivate(u"token 2"_s);
    EXPECT_EQ(opened, std::nullopt);
    EXPECT_EQ(activated, u"token 2"_s);
    EXPECT_EQ(tell("quit"), RemoteOutcome::Done);
    EXPECT_EQ(quits, 1);
}

TEST_F(RemoteControlTest, TellsTheStateAsItIs) {
    EXPECT_EQ(service.published, (RemoteStatus{u"offline"_s, {}, false, true}));
    backend.serve("/state", test::fixture("state/bare.json"));
    model.refresh();
    scheduler.advance(100ms);
    EXPECT_TRUE(test::eventually([&] { return model.snapshot() != nullptr; }));
    EXPECT_EQ(service.published.state, u"waiting"_s);
    EXPECT_EQ(service.published.device, model.snapshot()->device);
    model.setMicAuthorized(false);
    EXPECT_FALSE(service.published.isMicrophoneOn);
}

TEST_F(RemoteControlTest, TellsWhyTheListenKeyDoesNothing) {
    model.setHotKeyProblem(u"taken"_s);
    EXPECT_EQ(service.published.hotKeyProblem, u"taken"_s);
    model.setHotKeyProblem(std::nullopt);
    EXPECT_EQ(service.published.hotKeyProblem, QString());
}

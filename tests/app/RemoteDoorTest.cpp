#include "app/RemoteDoor.h"

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

class RemoteDoorTest : public testing::Test {
protected:
    bool tell(const char *action, std::optional<QString> text = std::nullopt) {
        return service.onCommand({QString::fromUtf8(action), std::move(text)});
    }

    test::ManualScheduler scheduler;
    test::FakeMicrophonePermission permission;
    test::ScriptedBackend backend;
    PalometModel model{scheduler, permission, backend.base()};
    test::FakeRemoteService service;
    RemoteDoor door{service, model};
};

} // namespace

TEST_F(RemoteDoorTest, PostsEachCommandAsTheMenuAndTheWindowDo) {
    const std::pair<const char *, const char *> commands[] = {{"listen", "/listen"}, {"stop", "/stop"},
                                                              {"mute", "/mute"},     {"new", "/new"},
                                                              {"act", "/act"},       {"clear-draft", "/draft/clear"}};
    for (const auto &[action, target] : commands) {
        EXPECT_TRUE(tell(action)) << action;
        EXPECT_TRUE(test::eventually([&, wanted = target] { return backend.count(wanted) == 1; })) << target;
        EXPECT_EQ(backend.last(target)->method(), "POST");
        EXPECT_EQ(backend.last(target)->body(), "");
    }
}

TEST_F(RemoteDoorTest, SaysATextWithoutTheBlanksAroundIt) {
    EXPECT_TRUE(tell("say", QStringLiteral(" olá \n")));
    EXPECT_TRUE(test::eventually([&] { return backend.count("/say") == 1; }));
    EXPECT_EQ(backend.last("/say")->body(), QStringLiteral("{\"text\":\"olá\"}").toUtf8());
}

TEST_F(RemoteDoorTest, RefusesWhatItDoesNotKnow) {
    EXPECT_FALSE(tell("dance"));
    EXPECT_FALSE(tell("say"));
    EXPECT_FALSE(tell("say", QStringLiteral("  ")));
    EXPECT_FALSE(tell("say", QString(1024 * 1024 + 1, u'a')));
    EXPECT_FALSE(tell("settings"));
    EXPECT_TRUE(backend.exchanges().empty());
}

TEST_F(RemoteDoorTest, OpensAndQuitsAsItIsTold) {
    std::optional<QString> opened = QStringLiteral("nothing");
    int quits = 0;
    door.onOpen = [&](const auto &pane) {
        opened = pane;
        return true;
    };
    door.onQuit = [&] { ++quits; };
    EXPECT_TRUE(tell("open", QStringLiteral("voice")));
    EXPECT_EQ(opened, QStringLiteral("voice"));
    service.onActivate();
    EXPECT_EQ(opened, std::nullopt);
    EXPECT_TRUE(tell("quit"));
    EXPECT_EQ(quits, 1);
}

TEST_F(RemoteDoorTest, TellsTheStateAsItIs) {
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

TEST_F(RemoteDoorTest, TellsWhyTheListenKeyDoesNothing) {
    model.setHotKeyProblem(QStringLiteral("taken"));
    EXPECT_EQ(service.published.hotKeyProblem, QStringLiteral("taken"));
    model.setHotKeyProblem(std::nullopt);
    EXPECT_EQ(service.published.hotKeyProblem, QString());
}

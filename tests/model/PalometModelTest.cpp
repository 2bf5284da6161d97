#include "tests/model/ModelTest.h"

#include <QNetworkProxy>

#include <algorithm>

using namespace palomet;
using namespace palomet::test;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

TEST_F(ModelTest, TheBackendIsLookedForOnTheLoopbackInterface) {
    EXPECT_EQ(hudBase(), QUrl(u"http://127.0.0.1:4780"_s));
}

TEST_F(ModelTest, IsOfflineAndQuietBeforeItStarts) {
    EXPECT_EQ(m_model.state(), LoopState::Offline);
    EXPECT_EQ(m_model.snapshot(), nullptr);
    EXPECT_TRUE(m_model.history().empty());
    EXPECT_EQ(m_model.options(), std::nullopt);
    EXPECT_EQ(m_model.applying(), std::nullopt);
    EXPECT_EQ(m_model.inLevel(), 0);
    EXPECT_EQ(m_model.outLevel(), 0);
    EXPECT_EQ(m_model.spokenLine(), QString());
    EXPECT_EQ(m_model.hotKeyProblem(), std::nullopt);
    EXPECT_EQ(m_model.now(), m_scheduler.now());
    EXPECT_EQ(m_scheduler.pendingCount(), 0U);
    m_scheduler.advance(1h);
    EXPECT_EQ(m_backend.connectionCount(), 0);
}

TEST_F(ModelTest, StartFetchesEverythingAndFollowsTheEvents) {
    startAndSettle();
    EXPECT_EQ(m_model.state(), LoopState::Speaking);
    EXPECT_EQ(*m_model.snapshot(), *decodeSnapshot(fixture("state/full.json")));
    EXPECT_EQ(m_model.history(), *decodeHistory(fixture("history/three.json")));
    EXPECT_EQ(m_model.options(), *decodeOptions(fixture("options/full.json")));
    for (const auto *target : {"/state", "/history", "/options", "/events"}) {
        EXPECT_EQ(m_backend.count(target), 1) << target;
        EXPECT_EQ(m_backend.last(target)->method(), "GET");
    }
}

TEST_F(ModelTest, WithoutAnAddressItKeepsWhatItIsGivenWhateverIsAsked) {
    PalometModel alone(m_scheduler, m_permission, QUrl());
    const auto sample = std::make_shared<const Snapshot>(*decodeSnapshot(fixture("state/full.json")));
    alone.setSnapshot(sample);
    alone.setHistory(*decodeHistory(fixture("history/three.json")));
    alone.setOptions(*decodeOptions(fixture("options/full.json")));
    const SignalCount applied(&alone, &PalometModel::applyingChanged);
    QStringList settled;
    QObject::connect(&alone, &PalometModel::changeSettled, [&](const QString &key) { settled.append(key); });
    alone.listen();
    alone.say(u"oi"_s);
    alone.set(u"voiceSpeed"_s, 1);
    alone.loadHistory();
    alone.loadOptions();
    alone.refresh();
    EXPECT_TRUE(eventually([&] { return applied.count() == 2; })) << "the setting has ended";
    ASSERT_TRUE(runsUntil([&] { return m_scheduler.pendingCount() == 0; }));
    EXPECT_EQ(settled, QStringList{u"voiceSpeed"_s});
    EXPECT_EQ(alone.snapshot(), sample);
    EXPECT_EQ(alone.history().size(), 3U);
    EXPECT_TRUE(alone.options());
    EXPECT_EQ(m_backend.connectionCount(), 0);
}

TEST_F(ModelTest, TellsOfAChangeAfterIt) {
    QString heard;
    QObject::connect(&m_model, &PalometModel::snapshotChanged, &m_model,
                     [&] { heard = m_model.snapshot() ? m_model.snapshot()->device : QString(); });
    startAndSettle();
    EXPECT_EQ(heard, u"Microphone (USB Audio)"_s);
}

TEST_F(ModelTest, TheStateIsFetchedATenthOfASecondAfterItWasAskedFor) {
    m_model.refresh();
    m_model.refresh();
    m_scheduler.advance(99ms);
    EXPECT_EQ(m_scheduler.pendingCount(), 1U);
    EXPECT_EQ(m_backend.connectionCount(), 0);
    m_scheduler.advance(1ms);
    EXPECT_TRUE(eventually([&] { return m_model.snapshot() != nullptr; }));
    EXPECT_EQ(m_backend.count("/state"), 1);
}

TEST_F(ModelTest, TheUserMutedItWhenTheBackendSaysSoWhateverThePhase) {
    EXPECT_FALSE(m_model.isMutedByUser());
    auto snapshot = *decodeSnapshot(fixture("state/full.json"));
    for (const auto *phase : {"muted", "waiting"}) {
        snapshot.state = QString::fromLatin1(phase);
        for (const bool isMuted : {true, false}) {
            snapshot.isMuted = isMuted;
            m_model.setSnapshot(std::make_shared<const Snapshot>(snapshot));
            EXPECT_EQ(m_model.isMutedByUser(), isMuted) << phase;
        }
    }
}

TEST_F(ModelTest, TheMicrophoneIsOnUnlessRefusedOrDead) {
    EXPECT_TRUE(m_model.isMicOn());
    auto snapshot = *decodeSnapshot(fixture("state/full.json"));
    m_model.setSnapshot(std::make_shared<const Snapshot>(snapshot));
    EXPECT_TRUE(m_model.isMicOn());
    snapshot.isMicDead = true;
    m_model.setSnapshot(std::make_shared<const Snapshot>(snapshot));
    EXPECT_FALSE(m_model.isMicOn());
    m_model.setSnapshot(nullptr);
    EXPECT_TRUE(m_model.isMicOn());
    m_model.setMicAuthorized(false);
    EXPECT_FALSE(m_model.isMicOn());
}

TEST_F(ModelTest, TheClockTellsTheTimeAndAsksForThePermissionEverySecond) {
    startAndSettle();
    const SignalCount ticks(&m_model, &PalometModel::nowChanged);
    const SignalCount permissions(&m_model, &PalometModel::isMicAuthorizedChanged);
    m_scheduler.advance(3s);
    EXPECT_EQ(ticks.count(), 3);
    EXPECT_EQ(m_scheduler.now() - m_model.now(), 100ms);
    EXPECT_EQ(permissions.count(), 0);
    EXPECT_TRUE(m_model.isMicAuthorized());
    for (const auto refused :
         {MicrophoneStatus::Denied, MicrophoneStatus::Restricted, MicrophoneStatus::NotDetermined}) {
        m_permission.m_status = refused;
        m_scheduler.advance(1s);
        EXPECT_FALSE(m_model.isMicAuthorized());
    }
    m_permission.m_status = MicrophoneStatus::Authorized;
    m_scheduler.advance(1s);
    EXPECT_TRUE(m_model.isMicAuthorized());
    EXPECT_EQ(permissions.count(), 2);
    send("level", "0");
    EXPECT_EQ(m_backend.count("/state"), 1) << "a tick fetches nothing while there is a snapshot";
}

TEST_F(ModelTest, KnowsThePermissionFromTheBeginning) {
    m_permission.m_status = MicrophoneStatus::Denied;
    const PalometModel model(m_scheduler, m_permission, m_backend.base());
    EXPECT_FALSE(model.isMicAuthorized());
}

TEST_F(ModelTest, AHotKeyProblemIsToldOfWhenItComesAndGoes) {
    const SignalCount changes(&m_model, &PalometModel::hotKeyProblemChanged);
    m_model.setHotKeyProblem(u"taken"_s);
    m_model.setHotKeyProblem(u"taken"_s);
    EXPECT_EQ(m_model.hotKeyProblem(), u"taken"_s);
    m_model.setHotKeyProblem(std::nullopt);
    EXPECT_EQ(changes.count(), 2);
}

TEST_F(ModelTest, ShowsAPreviewWithoutEverTouchingTheNetwork) {
    m_permission.m_status = MicrophoneStatus::Denied;
    m_model.setSnapshot(std::make_shared<const Snapshot>(*decodeSnapshot(fixture("state/full.json"))));
    m_model.setHistory(*decodeHistory(fixture("history/three.json")));
    m_model.setOptions(*decodeOptions(fixture("options/full.json")));
    m_model.setMicAuthorized(true);
    m_scheduler.advance(1h);
    EXPECT_TRUE(m_model.isMicAuthorized());
    EXPECT_EQ(m_model.state(), LoopState::Speaking);
    EXPECT_EQ(m_model.history().size(), 3U);
    EXPECT_TRUE(m_model.options());
    EXPECT_EQ(m_backend.connectionCount(), 0);
}

TEST_F(ModelTest, MayEndInTheMiddleOfEverything) {
    m_backend.hang("/listen");
    m_backend.hang("/settings");
    auto model = std::make_unique<PalometModel>(m_scheduler, m_permission, m_backend.base());
    model->start();
    m_scheduler.advance(100ms);
    model->listen();
    model->set(u"voiceSpeed"_s, 1);
    ASSERT_TRUE(hasCome("/state"));
    ASSERT_TRUE(hasCome("/listen"));
    ASSERT_TRUE(hasCome("/settings"));
    model.reset();
    EXPECT_EQ(m_scheduler.pendingCount(), 0U);
    EXPECT_TRUE(eventually([&] {
        return std::none_of(m_backend.exchanges().begin(), m_backend.exchanges().end(),
                            [](const auto &exchange) { return exchange->isOpen(); });
    }));
}

namespace {

/// Sends everything through a proxy that is not asked, as a desktop may be set up to.
class ProxyOfTheDesktop {
public:
    explicit ProxyOfTheDesktop(quint16 port) {
        QNetworkProxy::setApplicationProxy({QNetworkProxy::HttpProxy, u"127.0.0.1"_s, port});
    }
    ~ProxyOfTheDesktop() { QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy); }
    ProxyOfTheDesktop(const ProxyOfTheDesktop &) = delete;
    ProxyOfTheDesktop &operator=(const ProxyOfTheDesktop &) = delete;
};

} // namespace

TEST_F(ModelTest, AsksNoProxy) {
    ScriptedBackend proxy;
    const ProxyOfTheDesktop desktop(proxy.port());
    startAndSettle();
    m_backend.serve("/listen", "{}");
    m_backend.serve("/settings", "{}");
    m_model.listen();
    m_model.set(u"voiceSpeed"_s, 1);
    EXPECT_TRUE(hasCome("/listen"));
    EXPECT_TRUE(hasCome("/settings"));
    EXPECT_EQ(proxy.connectionCount(), 0);
}

TEST_F(ModelTest, SettlesAChangeWithTheStateThatWasAskedForAfterItAndNotWithAnOlderOne) {
    m_backend.serve("/state", fixture("state/full.json"));
    startAndSettle();
    QStringList settled;
    QObject::connect(&m_model, &PalometModel::changeSettled, [&](const QString &key) { settled.append(key); });
    m_backend.hang("/state");
    m_backend.hang("/settings");
    m_model.refresh();
    m_scheduler.advance(100ms);
    ASSERT_TRUE(hasCome("/state", 2));
    const auto older = m_backend.last("/state");
    m_model.set(u"voiceSpeed"_s, 1);
    ASSERT_TRUE(hasCome("/settings"));
    m_backend.last("/settings")->reply("{}");
    ASSERT_TRUE(eventually([&] { return !m_model.applying(); }));
    const SignalCount published(&m_model, &PalometModel::snapshotChanged);
    older->reply(fixture("state/full.json"));
    ASSERT_TRUE(eventually([&] { return published.count() == 1; }));
    EXPECT_TRUE(settled.isEmpty());
    m_scheduler.advance(100ms);
    ASSERT_TRUE(hasCome("/state", 3));
    m_backend.last("/state")->reply(fixture("state/full.json"));
    EXPECT_TRUE(eventually([&] { return !settled.isEmpty(); }));
    EXPECT_EQ(published.count(), 2);
    EXPECT_EQ(settled, QStringList{u"voiceSpeed"_s});
}

TEST_F(ModelTest, KeepsNoCookieAndAsksForNoCompression) {
    const std::pair<const char *, QByteArray> answers[] = {{"/state", fixture("state/full.json")}, {"/listen", "{}"}};
    for (const auto &[target, body] : answers) {
        m_backend.on(target, [body = body](const Exchange &exchange) {
            exchange->write("HTTP/1.1 200 OK\r\nset-cookie: a=b; Path=/\r\ncontent-length: " +
                            QByteArray::number(body.size()) + "\r\n\r\n" + body);
        });
    }
    startAndSettle();
    m_model.listen();
    ASSERT_TRUE(hasCome("/listen"));
    m_model.listen();
    ASSERT_TRUE(hasCome("/listen", 2));
    m_model.set(u"voiceSpeed"_s, 1);
    ASSERT_TRUE(hasCome("/settings"));
    m_model.refresh();
    m_scheduler.advance(100ms);
    ASSERT_TRUE(hasCome("/state", 2));
    for (const auto &exchange : m_backend.exchanges()) {
        EXPECT_EQ(exchange->header("cookie"), std::nullopt) << exchange->target().toStdString();
        EXPECT_EQ(exchange->header("accept-encoding"), "identity") << exchange->target().toStdString();
    }
}

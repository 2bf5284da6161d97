#include "app/AppDelegate.h"

#include "platform/posix/EventWakeup.h"
#include "platform/posix/PosixChildProcess.h"
#include "tests/support/Eventually.h"
#include "tests/support/FakeHotKeyGrabber.h"
#include "tests/support/FakeMicrophonePermission.h"
#include "tests/support/FakeRemoteService.h"
#include "tests/support/FakeSoundServer.h"
#include "tests/support/ManualScheduler.h"
#include "tests/support/Processes.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace palomet;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using test::EnvironmentVariable;
using test::eventually;

namespace {

class FakeTrayHost final : public TrayHost {
public:
    [[nodiscard]] Status status() const override { return m_status; }
    void become(Status status) {
        m_status = status;
        onChange();
    }

private:
    Status m_status = Status::NotDetermined;
};

class FakeColors final : public DesktopColors {
public:
    [[nodiscard]] Scheme panelScheme() const override { return Scheme::Light; }
};

const QByteArray missingHost = "bandeja: nenhum painel mostra ícones; o do Palomet aparece assim que houver um\n";

class AppDelegateTest : public ::testing::Test {
protected:
    AppDelegateTest() {
        QDir(folder.path()).mkpath(u"resources/engine"_s);
        EXPECT_TRUE(QFile::link(QStringLiteral(PALOMET_FAKE_BACKEND), folder.filePath(u"resources/bun"_s)));
    }

    void create(MicrophoneStatus status = MicrophoneStatus::Authorized) {
        auto ownedScheduler = std::make_unique<test::ManualScheduler>();
        auto ownedPermission = std::make_unique<test::FakeMicrophonePermission>(status);
        auto ownedSound = std::make_unique<test::FakeSoundServer>();
        auto ownedHost = std::make_unique<FakeTrayHost>();
        scheduler = ownedScheduler.get();
        permission = ownedPermission.get();
        sound = ownedSound.get();
        host = ownedHost.get();
        // Nobody answers there.
        const auto nobody = u"127.0.0.1:1"_s;
        delegate = std::make_unique<AppDelegate>(AppDelegate::Surroundings{
            .resources = folder.filePath(u"resources"_s),
            .home = folder.path(),
            .startProcess =
                [this](const ChildProcess::Launch &launch, std::function<void()> onExit) {
                    captureOpeningsAtLaunch = sound->captureOpenings;
                    ++launches;
                    return startChildProcess(launch, std::move(onExit));
                },
            .makeWakeup = &EventWakeup::make,
            .scheduler = std::move(ownedScheduler),
            .microphonePermission = std::move(ownedPermission),
            .soundServer = std::move(ownedSound),
            .trayHost = std::move(ownedHost),
            .colors = std::make_unique<FakeColors>(),
            .keyboardLayout = std::make_unique<NoKeyboardLayout>(),
            .hotKeyGrabber = std::make_unique<test::FakeHotKeyGrabber>(),
            .remote = std::make_unique<test::FakeRemoteService>(),
            .settings = std::make_unique<QSettings>(folder.filePath(u"palomet.conf"_s), QSettings::IniFormat),
            .backend = QUrl(u"http://"_s + nobody),
            .audio = QUrl(u"ws://"_s + nobody + u"/audio"_s),
        });
        QObject::connect(delegate.get(), &AppDelegate::mayTerminate, delegate.get(), [this] { ++terminations; });
    }

    void launch() {
        delegate->applicationDidFinishLaunching();
        EXPECT_TRUE(eventually([this] { return log().contains("pronto "); }));
    }

    void quit() {
        delegate->applicationShouldTerminate();
        EXPECT_TRUE(eventually([this] { return terminations > 0; }));
    }

    QByteArray log() const { return test::contentOf(LogFile::pathBelow(folder.path())); }

    /// The lines of the end.
    QByteArrayList farewell() const {
        QByteArrayList found;
        for (const auto &line : log().split('\n')) {
            if (line.startsWith("saindo: "))
                found.append(line);
        }
        return found;
    }

    QTemporaryDir folder;
    int launches = 0;
    int captureOpeningsAtLaunch = -1;
    int terminations = 0;
    std::unique_ptr<AppDelegate> delegate;
    test::ManualScheduler *scheduler = nullptr;
    test::FakeMicrophonePermission *permission = nullptr;
    test::FakeSoundServer *sound = nullptr;
    FakeTrayHost *host = nullptr;
};

class AppDelegateWithPermission : public AppDelegateTest, public ::testing::WithParamInterface<MicrophoneStatus> {};

} // namespace

TEST_F(AppDelegateTest, StartsNothingByItself) {
    create();
    QCoreApplication::processEvents();
    EXPECT_EQ(launches, 0);
    EXPECT_EQ(sound->captureOpenings, 0);
    EXPECT_EQ(scheduler->pendingCount(), 0U);
    EXPECT_FALSE(delegate->statusMenu().isItemShown());
}

TEST_P(AppDelegateWithPermission, StartsTheBackendAndThenTheSoundAtOnceWhenItIsDetermined) {
    create(GetParam());
    delegate->applicationDidFinishLaunching();
    EXPECT_EQ(permission->requests(), 0U);
    EXPECT_EQ(launches, 1);
    EXPECT_EQ(captureOpeningsAtLaunch, 0);
    EXPECT_EQ(sound->captureOpenings, 1);
}

TEST_P(AppDelegateWithPermission, StartsTheBackendAndTheSoundOnlyWhenTheUserHasAnsweredWhateverTheAnswer) {
    create(MicrophoneStatus::NotDetermined);
    delegate->applicationDidFinishLaunching();
    EXPECT_EQ(permission->requests(), 1U);
    QCoreApplication::processEvents();
    EXPECT_EQ(launches, 0);
    EXPECT_EQ(sound->captureOpenings, 0);
    permission->answer(GetParam());
    EXPECT_EQ(launches, 1);
    EXPECT_EQ(captureOpeningsAtLaunch, 0);
    EXPECT_EQ(sound->captureOpenings, 1);
}

INSTANTIATE_TEST_SUITE_P(Determined, AppDelegateWithPermission,
                         ::testing::Values(MicrophoneStatus::Restricted, MicrophoneStatus::Denied,
                                           MicrophoneStatus::Authorized));

TEST_F(AppDelegateTest, ShowsItsItemOnceAHostIsThere) {
    create();
    launch();
    EXPECT_FALSE(delegate->statusMenu().isItemShown());
    host->become(TrayHost::Status::Present);
    EXPECT_TRUE(delegate->statusMenu().isItemShown());
    host->become(TrayHost::Status::Absent);
    EXPECT_TRUE(delegate->statusMenu().isItemShown());
}

TEST_F(AppDelegateTest, NotesOnceThatThereIsNoHostWhenTheBackendWasStarted) {
    create(MicrophoneStatus::NotDetermined);
    delegate->applicationDidFinishLaunching();
    host->become(TrayHost::Status::Absent);
    EXPECT_EQ(log(), "");
    permission->answer(MicrophoneStatus::Authorized);
    EXPECT_EQ(log().count(missingHost), 1);
    host->become(TrayHost::Status::Present);
    host->become(TrayHost::Status::Absent);
    EXPECT_EQ(log().count(missingHost), 1);
}

TEST_F(AppDelegateTest, NotesThatThereIsNoHostWhenThatTurnsOutLate) {
    create();
    launch();
    EXPECT_FALSE(log().contains(missingHost));
    host->become(TrayHost::Status::Absent);
    EXPECT_TRUE(log().contains(missingHost));
}

TEST_F(AppDelegateTest, SaysNothingOfAHostThatIsThere) {
    create();
    host->become(TrayHost::Status::Present);
    launch();
    EXPECT_FALSE(log().contains("bandeja"));
}

TEST_F(AppDelegateTest, QuitsInOrder) {
    create();
    launch();
    const auto backend = test::processesNamed("pronto", log()).constFirst();
    quit();
    EXPECT_TRUE(test::hasEnded(backend));
    EXPECT_EQ(farewell(), (QByteArrayList{"saindo: pedido de saída recebido",
                                          "saindo: parando o processo de voz (pid " + QByteArray::number(backend) + ")",
                                          "saindo: pronto"}));
}

TEST_F(AppDelegateTest, QuitsWithinTwoSecondsWhenTheBackendDoesNotListen) {
    const EnvironmentVariable behaviour("FAKE_BACKEND", "stubborn");
    create();
    launch();
    const auto backend = test::processesNamed("pronto", log()).constFirst();
    quit();
    EXPECT_TRUE(eventually([&] { return test::hasEnded(backend); }));
    EXPECT_EQ(farewell(),
              (QByteArrayList{"saindo: pedido de saída recebido",
                              "saindo: parando o processo de voz (pid " + QByteArray::number(backend) + ")",
                              "saindo: o processo de voz não parou em 2.0 s; encerrando à força", "saindo: pronto"}));
}

TEST_F(AppDelegateTest, QuitsOnceHoweverOftenItIsAsked) {
    create();
    launch();
    delegate->applicationShouldTerminate();
    delegate->applicationShouldTerminate();
    EXPECT_EQ(terminations, 0);
    EXPECT_TRUE(eventually([this] { return terminations > 0; }));
    delegate->applicationShouldTerminate();
    QCoreApplication::processEvents();
    EXPECT_EQ(terminations, 1);
    EXPECT_EQ(farewell().count("saindo: pedido de saída recebido"), 1);
    EXPECT_EQ(farewell().count("saindo: pronto"), 1);
}

TEST_F(AppDelegateTest, QuitsFromItsMenu) {
    create();
    launch();
    delegate->statusMenu().menu().actions().constLast()->trigger();
    EXPECT_TRUE(eventually([this] { return terminations == 1; }));
}

TEST_F(AppDelegateTest, StartsNothingAnyMoreOnceItQuits) {
    create(MicrophoneStatus::NotDetermined);
    delegate->applicationDidFinishLaunching();
    quit();
    permission->answer(MicrophoneStatus::Authorized);
    EXPECT_EQ(launches, 0);
    EXPECT_EQ(sound->captureOpenings, 0);
}

TEST_F(AppDelegateTest, QuitsWithABackendThatWasDeadOnArrival) {
    const EnvironmentVariable behaviour("FAKE_BACKEND", "exit");
    create();
    launch();
    quit();
    scheduler->advance(1h);
    EXPECT_EQ(launches, 1);
    EXPECT_EQ(farewell().constLast(), "saindo: pronto");
}

TEST_F(AppDelegateTest, RunsWithoutABackendThatCannotBeRun) {
    QFile::remove(folder.filePath(u"resources/bun"_s));
    create();
    delegate->applicationDidFinishLaunching();
    EXPECT_EQ(delegate->backend().problem(), u"incomplete bundle: bun is missing"_s);
    EXPECT_EQ(sound->captureOpenings, 1);
    quit();
    EXPECT_EQ(log(), "");
}

TEST_F(AppDelegateTest, WritesTheSoundsNotesToTheLog) {
    create();
    sound->captureFailure = Failure{u"no microphone"_s};
    launch();
    EXPECT_TRUE(eventually([this] { return log().contains("áudio: "); }));
}

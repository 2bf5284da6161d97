#include "app/AppDelegate.h"

#include "platform/linux/EventWakeup.h"
#include "platform/linux/startChildProcess.h"
#include "tests/support/Eventually.h"
#include "tests/support/FakeHotKeyGrabber.h"
#include "tests/support/FakeMicrophonePermission.h"
#include "tests/support/FakeRemoteService.h"
#include "tests/support/FakeSoundServer.h"
#include "tests/support/Farewell.h"
#include "tests/support/Fixture.h"
#include "tests/support/ManualScheduler.h"
#include "tests/support/Processes.h"
#include "tests/support/ScriptedAudioBackend.h"
#include "tests/support/ScriptedBackend.h"
#include "tests/support/Windows.h"
#include "ui/kit/Wishes.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QQuickItem>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

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

class FakeLook final : public DesktopLook {
public:
    [[nodiscard]] Scheme panelScheme() const override { return Scheme::Light; }
    [[nodiscard]] bool isMotionReduced() const override { return m_isMotionReduced; }
    [[nodiscard]] bool isContrastRaised() const override { return m_isContrastRaised; }
    void reduceMotion(bool isReduced) {
        m_isMotionReduced = isReduced;
        onChange();
    }
    void raiseContrast(bool isRaised) {
        m_isContrastRaised = isRaised;
        onChange();
    }

private:
    bool m_isMotionReduced = false;
    bool m_isContrastRaised = false;
};

const QByteArray missingHost =
    "bandeja: falta um painel com StatusNotifierHost; o ícone do Palomet aparece assim que houver um\n";

/// A desktop that has a dialog for folders, or none.
class FakeFolderChooser final : public FolderChooser {
public:
    void ask(const Request &request, std::function<void(const QStringList &)> /*picked*/,
             std::function<void()> missing) override {
        asked.push_back(request);
        if (isMissing)
            missing();
    }

    std::vector<Request> asked;
    bool isMissing = false;
};

class AppDelegateTest : public ::testing::Test {
protected:
    AppDelegateTest() {
        QDir(folder.path()).mkpath(u"resources/engine"_s);
        EXPECT_TRUE(QFile::link(u"" PALOMET_FAKE_BACKEND ""_s, folder.filePath(u"resources/bun"_s)));
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
        auto ownedGrabber = std::make_unique<test::FakeHotKeyGrabber>();
        auto ownedLook = std::make_unique<FakeLook>();
        look = ownedLook.get();
        auto ownedChooser = std::make_unique<FakeFolderChooser>();
        chooser = ownedChooser.get();
        auto ownedRemote = std::make_unique<test::FakeRemoteService>();
        grabber = ownedGrabber.get();
        remote = ownedRemote.get();
        delegate = std::make_unique<AppDelegate>(AppDelegate::Parts{
            .resources = folder.filePath(u"resources"_s),
            .home = folder.path(),
            .version = u"1.2.3"_s,
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
            .look = std::move(ownedLook),
            .workArea = nullptr,
            .windowManagement = nullptr,
            .folderChooser = std::move(ownedChooser),
            .keyboardLayout = std::make_unique<NoKeyboardLayout>(),
            .hotKeyGrabber = std::move(ownedGrabber),
            .remote = std::move(ownedRemote),
            .settings = std::make_unique<QSettings>(folder.filePath(u"palomet.conf"_s), QSettings::IniFormat),
            .openFile = [this](const QString &path) { opened.append(path); },
            .openMicrophoneSettings = [] {},
            .backend = server.base(),
            .audio = audio,
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

    /// An event of the first second.
    enum class Happening { HostAppears, UserAnswers, WindowIsAskedFor, UserQuits };
    void happen(Happening happening) {
        switch (happening) {
        case Happening::HostAppears:
            return host->become(TrayHost::Status::Present);
        case Happening::UserAnswers:
            return permission->answer(MicrophoneStatus::Authorized);
        case Happening::WindowIsAskedFor:
            return remote->onActivate({});
        case Happening::UserQuits:
            return delegate->applicationShouldTerminate();
        }
    }

    /// The backend is in that state, and the model knows.
    void become(const QString &state) {
        auto document = QJsonDocument::fromJson(test::fixture("state/full.json")).object();
        document[u"state"_s] = state;
        document[u"isMuted"_s] = false;
        server.serve("/state", QJsonDocument(document).toJson());
        Q_EMIT test::trayMenu().aboutToShow();
        scheduler->advance(100ms);
        EXPECT_TRUE(eventually([&] { return remote->published.state == state; }));
    }

    /// The window, once it was opened.
    [[nodiscard]] static SettingsWindow *window() {
        for (auto *window : QGuiApplication::allWindows())
            if (auto *settings = qobject_cast<SettingsWindow *>(window))
                return settings;
        return nullptr;
    }
    [[nodiscard]] static AppView *view() { return window()->rootObject()->property("app").value<AppView *>(); }
    [[nodiscard]] static bool isStripShown() {
        const auto strips = test::stripWindows();
        return !strips.isEmpty() && strips.constFirst()->isVisible();
    }
    [[nodiscard]] static bool isItemShown() { return test::trayMenu().findChild<QSystemTrayIcon *>() != nullptr; }

    QByteArray log() const { return test::contentOf(LogFile::pathBelow(folder.path())); }

    QByteArrayList farewell() const { return test::farewellIn(log()); }

    /// Nobody answers there, unless a test has somebody.
    QUrl audio{u"ws://127.0.0.1:1/audio"_s};
    QTemporaryDir folder;
    test::ScriptedBackend server;
    QStringList opened;
    int launches = 0;
    int captureOpeningsAtLaunch = -1;
    int terminations = 0;
    std::unique_ptr<AppDelegate> delegate;
    test::ManualScheduler *scheduler = nullptr;
    test::FakeMicrophonePermission *permission = nullptr;
    test::FakeSoundServer *sound = nullptr;
    FakeTrayHost *host = nullptr;
    FakeLook *look = nullptr;
    test::FakeHotKeyGrabber *grabber = nullptr;
    test::FakeRemoteService *remote = nullptr;
    FakeFolderChooser *chooser = nullptr;
};

class AppDelegateWithPermission : public AppDelegateTest, public ::testing::WithParamInterface<MicrophoneStatus> {};

} // namespace

TEST_F(AppDelegateTest, StartsNothingByItself) {
    create();
    QCoreApplication::processEvents();
    EXPECT_EQ(launches, 0);
    EXPECT_EQ(sound->captureOpenings, 0);
    EXPECT_EQ(scheduler->pendingCount(), 0U);
    EXPECT_FALSE(isItemShown());
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
    EXPECT_FALSE(isItemShown());
    host->become(TrayHost::Status::Present);
    EXPECT_TRUE(isItemShown());
    host->become(TrayHost::Status::Absent);
    EXPECT_TRUE(isItemShown());
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

TEST_F(AppDelegateTest, DoesNotMissAHostThatIsRestarted) {
    create();
    host->become(TrayHost::Status::Present);
    launch();
    for (int restart = 0; restart < 20; ++restart) {
        host->become(TrayHost::Status::Absent);
        EXPECT_EQ(window(), nullptr);
        host->become(TrayHost::Status::Present);
        EXPECT_TRUE(isItemShown());
    }
    EXPECT_FALSE(log().contains("bandeja"));
}

TEST_F(AppDelegateTest, ComesToTheSameInWhateverOrderThingsHappenAtTheStart) {
    std::array<Happening, 3> order{Happening::HostAppears, Happening::UserAnswers, Happening::WindowIsAskedFor};
    do {
        create(MicrophoneStatus::NotDetermined);
        launches = 0;
        delegate->applicationDidFinishLaunching();
        for (const auto happening : order)
            happen(happening);
        EXPECT_TRUE(isItemShown());
        EXPECT_EQ(launches, 1);
        EXPECT_EQ(sound->captureOpenings, 1);
        ASSERT_TRUE(window());
        EXPECT_TRUE(window()->isVisible());
        EXPECT_FALSE(log().contains("bandeja"));
        delegate.reset();
    } while (std::ranges::next_permutation(order).found);
}

TEST_F(AppDelegateTest, QuitsInTheMiddleOfItsStartInWhateverOrderThingsHappen) {
    std::array<Happening, 3> order{Happening::HostAppears, Happening::UserAnswers, Happening::UserQuits};
    do {
        create(MicrophoneStatus::NotDetermined);
        launches = terminations = 0;
        QFile::remove(LogFile::pathBelow(folder.path()));
        delegate->applicationDidFinishLaunching();
        int launchesAtTheEnd = 0;
        for (const auto happening : order) {
            happen(happening);
            if (happening == Happening::UserQuits)
                launchesAtTheEnd = launches;
        }
        EXPECT_TRUE(eventually([this] { return terminations > 0; }));
        scheduler->advance(1h);
        EXPECT_EQ(terminations, 1);
        EXPECT_EQ(launches, launchesAtTheEnd);
        for (const auto process : test::processesNamed("pronto", log()))
            EXPECT_TRUE(test::hasEnded(process));
        EXPECT_EQ(window(), nullptr);
        delegate.reset();
    } while (std::ranges::next_permutation(order).found);
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

TEST_F(AppDelegateTest, PutsTheDefaultInputBackWhenItQuits) {
    test::ScriptedAudioBackend backend;
    audio = backend.url();
    create();
    sound->devices = {{u"mic.a"_s, u"Mic A"_s}, {u"mic.b"_s, u"Mic B"_s}};
    sound->defaultId = u"mic.a"_s;
    launch();
    ASSERT_TRUE(eventually([&] { return !backend.events(u"hello"_s).empty(); }));
    backend.send(uR"({"type":"input","device":"Mic B"})"_s);
    ASSERT_TRUE(eventually([this] { return sound->defaultId == u"mic.b"_s; }));
    delegate->applicationShouldTerminate();
    EXPECT_EQ(sound->defaultId, u"mic.a"_s) << "before anything else is ended";
    EXPECT_TRUE(eventually([this] { return terminations > 0; }));
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
    test::trayMenu().actions().constLast()->trigger();
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
    EXPECT_EQ(launches, 0);
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

TEST_F(AppDelegateTest, MakesNeitherWindowNorStripBeforeTheyAreNeeded) {
    create();
    launch();
    EXPECT_EQ(QGuiApplication::allWindows().size(), 0);
}

TEST_F(AppDelegateTest, MakesOneWindowHoweverOftenItIsOpenedAndLoadsHistoryAndOptionsEachTime) {
    create();
    delegate->openWindow();
    const auto *shown = window();
    ASSERT_TRUE(shown);
    EXPECT_TRUE(shown->isVisible());
    EXPECT_EQ(shown->title(), u"Palomet");
    EXPECT_TRUE(eventually([this] { return server.count("/history") == 1 && server.count("/options") == 1; }));
    window()->close();
    EXPECT_FALSE(shown->isVisible());
    delegate->openWindow();
    EXPECT_EQ(window(), shown);
    EXPECT_TRUE(shown->isVisible());
    EXPECT_TRUE(eventually([this] { return server.count("/history") == 2 && server.count("/options") == 2; }));
}

TEST_F(AppDelegateTest, ShowsEverythingWithTheContrastThatTheDesktopAsksForNowAndLater) {
    create();
    look->raiseContrast(true);
    delegate->applicationDidFinishLaunching();
    delegate->openWindow();
    auto &wishes = Wishes::of(*window()->engine());
    EXPECT_TRUE(wishes.isContrastRaised());
    look->raiseContrast(false);
    EXPECT_FALSE(wishes.isContrastRaised());
    look->raiseContrast(true);
    EXPECT_TRUE(wishes.isContrastRaised());
}

TEST_F(AppDelegateTest, ShowsEverythingWithTheMotionThatTheDesktopAsksForNowAndLater) {
    create();
    look->reduceMotion(true);
    delegate->applicationDidFinishLaunching();
    delegate->openWindow();
    auto &wishes = Wishes::of(*window()->engine());
    EXPECT_TRUE(wishes.isMotionReduced());
    look->reduceMotion(false);
    EXPECT_FALSE(wishes.isMotionReduced());
    look->reduceMotion(true);
    EXPECT_TRUE(wishes.isMotionReduced());
}

TEST_F(AppDelegateTest, OpensItsWindowFromTheMenuOnThePaneThatItHad) {
    create();
    delegate->openWindow(Pane::Brain);
    window()->close();
    for (auto *action : test::trayMenu().actions()) {
        if (action->shortcut() == QKeySequence(u"Ctrl+O"_s)) {
            EXPECT_TRUE(action->isEnabled());
            action->trigger();
        }
    }
    EXPECT_TRUE(window()->isVisible());
    EXPECT_EQ(view()->pane(), Pane::Brain);
}

TEST_F(AppDelegateTest, OpensItsWindowForOtherProgramsOnThePaneThatTheyName) {
    create();
    EXPECT_EQ(remote->onCommand({u"open"_s, u"voice"_s}), RemoteOutcome::Done);
    ASSERT_TRUE(window());
    EXPECT_EQ(view()->pane(), Pane::Voice);
    EXPECT_EQ(remote->onCommand({u"open"_s, std::nullopt}), RemoteOutcome::Done);
    EXPECT_EQ(view()->pane(), Pane::Voice);
    window()->close();
    EXPECT_EQ(remote->onCommand({u"open"_s, u"cellar"_s}), RemoteOutcome::Unknown);
    EXPECT_FALSE(window()->isVisible());
    remote->onActivate({});
    EXPECT_TRUE(window()->isVisible());
    EXPECT_EQ(view()->pane(), Pane::Voice);
}

TEST_F(AppDelegateTest, OpensItsWindowOnceWhenThereIsNoHost) {
    create(MicrophoneStatus::NotDetermined);
    delegate->applicationDidFinishLaunching();
    host->become(TrayHost::Status::Absent);
    EXPECT_EQ(window(), nullptr);
    permission->answer(MicrophoneStatus::Authorized);
    ASSERT_TRUE(window());
    EXPECT_TRUE(window()->isVisible());
    window()->close();
    host->become(TrayHost::Status::Present);
    host->become(TrayHost::Status::Absent);
    EXPECT_FALSE(window()->isVisible());
}

TEST_F(AppDelegateTest, OpensNoWindowByItselfWhereThereIsAHost) {
    create();
    host->become(TrayHost::Status::Present);
    launch();
    EXPECT_EQ(window(), nullptr);
}

TEST_F(AppDelegateTest, ShowsTheStripWhileItIsBusyAndOpensTheNowPaneByAClickOnIt) {
    create();
    launch();
    become(u"waiting"_s);
    EXPECT_FALSE(isStripShown());
    become(u"listening"_s);
    ASSERT_TRUE(isStripShown());
    EXPECT_EQ(window(), nullptr);
    delegate->openWindow(Pane::Voice);
    window()->close();
    QTest::mouseClick(test::stripWindows().constFirst(), Qt::LeftButton, {}, {200, 20});
    EXPECT_TRUE(window()->isVisible());
    EXPECT_EQ(view()->pane(), Pane::Now);
    become(u"waiting"_s);
    EXPECT_TRUE(isStripShown());
    scheduler->advance(5s);
    EXPECT_FALSE(isStripShown());
}

TEST_F(AppDelegateTest, HoldsTheStopKeyOnlyWhileThereIsSomethingToStop) {
    constexpr quint32 listenKey = 1;
    constexpr quint32 stopKey = 2;
    create();
    launch();
    EXPECT_TRUE(grabber->held.contains(listenKey));
    EXPECT_FALSE(grabber->held.contains(stopKey));
    for (const auto &[state, isStopHeld] : {std::pair{u"listening"_s, false}, std::pair{u"thinking"_s, true},
                                            std::pair{u"speaking"_s, true}, std::pair{u"waiting"_s, false}}) {
        become(state);
        EXPECT_TRUE(grabber->held.contains(listenKey)) << state.toStdString();
        EXPECT_EQ(grabber->held.contains(stopKey), isStopHeld) << state.toStdString();
    }
}

TEST_F(AppDelegateTest, OpensItsLogFromTheBrainPane) {
    create();
    delegate->openWindow(Pane::Brain);
    auto *app = view();
    ASSERT_TRUE(app);
    app->brain()->openLog();
    EXPECT_EQ(opened, QStringList{LogFile::pathBelow(folder.path())});
}

TEST_F(AppDelegateTest, AsksForFoldersInTheDesktopsDialogAndInItsOwnWhereThereIsNone) {
    create();
    delegate->openWindow(Pane::Brain);
    auto *app = view();
    ASSERT_TRUE(app);
    app->brain()->addFolder();
    ASSERT_EQ(chooser->asked.size(), 1);
    EXPECT_EQ(chooser->asked.front().owner, window()->winId());
    EXPECT_EQ(chooser->asked.front().home, folder.path());
    const auto dialogs = [] {
        const auto widgets = QApplication::topLevelWidgets();
        return std::count_if(widgets.begin(), widgets.end(),
                             [](auto *widget) { return widget->inherits("QFileDialog"); });
    };
    EXPECT_EQ(dialogs(), 0);
    chooser->isMissing = true;
    app->brain()->addFolder();
    EXPECT_EQ(dialogs(), 1);
    for (auto *widget : QApplication::topLevelWidgets())
        widget->close();
    EXPECT_TRUE(eventually([&] { return dialogs() == 0; }));
}

TEST_F(AppDelegateTest, OpensNothingAnyMoreOnceItQuits) {
    create();
    launch();
    delegate->applicationShouldTerminate();
    delegate->openWindow();
    EXPECT_EQ(window(), nullptr);
    EXPECT_TRUE(eventually([this] { return terminations > 0; }));
}

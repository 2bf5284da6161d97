#pragma once

#include "app/AppDelegate.h"
#include "platform/linux/EventWakeup.h"
#include "platform/linux/startChildProcess.h"
#include "tests/support/Eventually.h"
#include "tests/support/FakeHotKeyGrabber.h"
#include "tests/support/FakeMicrophonePermission.h"
#include "tests/support/FakeNotifier.h"
#include "tests/support/FakeRemoteService.h"
#include "tests/support/FakeSoundServer.h"
#include "tests/support/Farewell.h"
#include "tests/support/Fixture.h"
#include "tests/support/ManualScheduler.h"
#include "tests/support/Processes.h"
#include "tests/support/ScriptedBackend.h"
#include "tests/support/Windows.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QQuickItem>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace palomet::test {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

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

/// The program's delegate, with the platform's part played by doubles.
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
        auto ownedNotifier = std::make_unique<test::FakeNotifier>();
        notifier = ownedNotifier.get();
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
            .desktopKeys = nullptr,
            .remote = std::move(ownedRemote),
            .notifier = std::move(ownedNotifier),
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
    test::FakeNotifier *notifier = nullptr;
    FakeFolderChooser *chooser = nullptr;
};

} // namespace palomet::test

#include "tests/app/AppDelegateTest.h"

#include "localization/Localization.h"
#include "tests/support/ScriptedAudioBackend.h"

#include <algorithm>
#include <array>

using namespace palomet;
using namespace palomet::test;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

const QByteArray missingHost =
    "bandeja: falta um painel com StatusNotifierHost; o ícone do Palomet aparece assim que houver um\n";

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

TEST_F(AppDelegateTest, SaysThatTheBackendHasBeenAwayForAMinuteAndOpensThePaneThatHelps) {
    create();
    launch();
    scheduler->advance(1min);
    ASSERT_EQ(notifier->said, std::vector{L(u"notice.backend")});
    notifier->choose();
    ASSERT_TRUE(window());
    EXPECT_EQ(view()->pane(), Pane::Brain);
    quit();
    EXPECT_TRUE(notifier->showing.empty());
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

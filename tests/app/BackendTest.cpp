#include "tests/app/BackendTest.h"

#include "localization/Localization.h"

#include <QElapsedTimer>
#include <QThread>

#include <signal.h>
#include <unistd.h>

#include <atomic>
#include <thread>

using namespace palomet;
using namespace palomet::test;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

/// One that has ended when somebody has looked so often.
class PatientProcess final : public ChildProcess {
public:
    explicit PatientProcess(int looks)
        : m_looks(looks) {}

    [[nodiscard]] qint64 processId() const override { return 1; }
    [[nodiscard]] bool isRunning() const override { return --m_looks >= 0; }
    void terminate() override {}
    void killWithChildren() override { ADD_FAILURE() << "it was patient"; }

private:
    mutable std::atomic<int> m_looks;
};

} // namespace

TEST_F(BackendTest, RunsTheEngineWithTheBundledRuntime) {
    const auto process = start();
    EXPECT_EQ(test::processFile(process, u"cmdline"_s), runtime().toUtf8() + '\0' + "src/main.ts" + '\0');
    EXPECT_EQ(QFile::symLinkTarget(u"/proc/%1/cwd"_s.arg(process)), *resources + u"/engine"_s);
    EXPECT_EQ(variable(process, "PALOMET_APP_AUDIO"), "1");
    EXPECT_EQ(backend->problem(), std::nullopt);
}

TEST_F(BackendTest, GivesTheBackendTheToolPathAndNothingOfItsOwnPath) {
    const EnvironmentVariable path("PATH", "/somewhere/else");
    const auto home = folder.path().toUtf8();
    EXPECT_EQ(variable(start(), "PATH"),
              home + "/.local/bin:" + home + "/.npm-global/bin:" + home +
                  "/.bun/bin:/opt/homebrew/bin:/usr/local/bin:/usr/bin:/bin:/usr/sbin:/sbin");
}

TEST_F(BackendTest, GivesTheBackendTheLanguageInUseAndThenThePreferredOnes) {
    const EnvironmentVariable languages("LANGUAGE", "pt_BR:en_US");
    for (const auto *language : {"en", "pt-BR"}) {
        const auto table = *resources + u'/' + QString::fromLatin1(language) + u".lproj"_s;
        QDir().mkpath(table);
        QFile strings(table + u"/strings.json"_s);
        ASSERT_TRUE(strings.open(QFile::WriteOnly));
        strings.write("{}");
    }
    localization::load(*resources, localization::preferredLanguages());
    EXPECT_EQ(variable(start(), "PALOMET_LANGUAGES"), "pt-BR,pt-BR,en-US");
    localization::load({}, {});
}

TEST_F(BackendTest, MarksEachStartInTheLog) {
    const EnvironmentVariable behaviour("FAKE_BACKEND", "exit");
    start();
    EXPECT_TRUE(log().startsWith(marker + "pronto ")) << log().constData();
    ASSERT_TRUE(eventually([this] { return exits == 1; }));
    scheduler.advance(2s);
    awaitNext(1);
    EXPECT_EQ(log().count("\n\n--- 2026-01-05 09:30:02 +0000 iniciando ---\npronto "), 1) << log().constData();
}

TEST_F(BackendTest, RestartsTwoSecondsAfterTheProcessWasKilled) {
    kill(static_cast<pid_t>(start()), SIGKILL);
    ASSERT_TRUE(eventually([this] { return exits == 1; }));
    scheduler.advance(1999ms);
    EXPECT_EQ(launches, 1);
    scheduler.advance(1ms);
    EXPECT_EQ(launches, 2);
    const auto second = awaitNext(1);
    EXPECT_FALSE(hasEnded(second));
}

TEST_F(BackendTest, RestartsABackendThatKeepsDyingEveryTwoSeconds) {
    const EnvironmentVariable behaviour("FAKE_BACKEND", "exit");
    backend->start();
    for (int round = 1; round <= 10; ++round) {
        ASSERT_TRUE(eventually([&] { return exits == round; }));
        EXPECT_EQ(launches, round);
        scheduler.advance(2s);
    }
    EXPECT_EQ(launches, 11);
}

TEST_F(BackendTest, EndsWhatIsLeftOfTheBackendBeforeItIsRestarted) {
    const EnvironmentVariable behaviour("FAKE_BACKEND", "orphans");
    start();
    const auto children = test::processesNamed("filho", log());
    ASSERT_EQ(children.size(), 2);
    EXPECT_TRUE(eventually([&] { return exits == 1 && hasEnded(children[0]); }));
    EXPECT_EQ(launches, 1);
    kill(static_cast<pid_t>(children[1]), SIGKILL);
}

TEST_F(BackendTest, IsDoneAtOnceWhenThereIsNothingToStop) {
    bool isDone = false;
    backend->stop(2s, [&] { isDone = true; });
    EXPECT_TRUE(isDone);
    EXPECT_FALSE(QFile::exists(logPath()));
}

TEST_F(BackendTest, IsDoneAtOnceWhenTheProcessHasJustEnded) {
    const auto process = start();
    kill(static_cast<pid_t>(process), SIGKILL);
    // Not told yet: the event loop does not run meanwhile.
    while (!hasEnded(process))
        usleep(1000);
    bool isDone = false;
    backend->stop(2s, [&] { isDone = true; });
    EXPECT_TRUE(isDone);
    EXPECT_FALSE(log().contains("saindo"));
}

TEST_F(BackendTest, StopsABackendThatListensAsSoonAsItIsGone) {
    const auto process = start();
    EXPECT_TRUE(stopWithin(1h));
    EXPECT_TRUE(hasEnded(process));
    EXPECT_TRUE(log().endsWith("\nsaindo: parando o processo de voz (pid " + QByteArray::number(process) + ")\n"));
    EXPECT_FALSE(log().contains("encerrando à força"));
}

TEST_F(BackendTest, LooksEveryFiftyMillisecondsWhetherTheProcessHasEnded) {
    constexpr int looks = 20;
    auto process = std::make_unique<PatientProcess>(looks);
    backend.emplace(
        [&](const auto &, auto) -> Result<std::unique_ptr<ChildProcess>> {
            return std::unique_ptr<ChildProcess>(std::move(process));
        },
        scheduler, resources, home());
    backend->start();
    QElapsedTimer clock;
    clock.start();
    // Somebody who sleeps as often as that, on the same machine at the same time.
    std::atomic<qint64> control = 0;
    const std::jthread sleeper([&] {
        for (int look = 0; look < looks; ++look)
            std::this_thread::sleep_for(50ms);
        control = clock.elapsed();
    });
    EXPECT_TRUE(stopWithin(1h));
    const auto elapsed = clock.elapsed();
    EXPECT_TRUE(eventually([&] { return control > 0; }));
    EXPECT_GT(elapsed, control * 3 / 4);
    EXPECT_LT(elapsed, control * 3 / 2);
    EXPECT_FALSE(log().contains("encerrando à força"));
}

TEST_F(BackendTest, IsDoneFromTheEventLoopOnTheMainThread) {
    start();
    Qt::HANDLE thread = nullptr;
    backend->stop(2s, [&] { thread = QThread::currentThreadId(); });
    EXPECT_EQ(thread, nullptr);
    EXPECT_TRUE(eventually([&] { return thread != nullptr; }));
    EXPECT_EQ(thread, QThread::currentThreadId());
}

TEST_F(BackendTest, EndsABackendThatDoesNotListenByForceWithItsChildren) {
    const EnvironmentVariable behaviour("FAKE_BACKEND", "family");
    const auto process = start();
    const auto children = test::processesNamed("filho", log());
    ASSERT_EQ(children.size(), 2);
    QElapsedTimer waited;
    waited.start();
    EXPECT_TRUE(stopWithin(200ms));
    EXPECT_GE(waited.elapsed(), 200);
    EXPECT_TRUE(eventually([&] { return hasEnded(process) && hasEnded(children[0]) && hasEnded(children[1]); }));
    EXPECT_TRUE(log().endsWith("\nsaindo: parando o processo de voz (pid " + QByteArray::number(process) +
                               ")\nsaindo: o processo de voz não parou em 0.2 s; encerrando à força\n"))
        << log().constData();
}

TEST_F(BackendTest, WritesWholeSecondsWithADecimal) {
    const EnvironmentVariable behaviour("FAKE_BACKEND", "stubborn");
    start();
    EXPECT_TRUE(stopWithin(2s));
    EXPECT_TRUE(log().endsWith("\nsaindo: o processo de voz não parou em 2.0 s; encerrando à força\n"));
}

TEST_F(BackendTest, DoesNotRestartABackendThatEndedWhileItWasStopped) {
    const EnvironmentVariable behaviour("FAKE_BACKEND", "stubborn");
    const auto process = start();
    bool isDone = false;
    backend->stop(1h, [&] { isDone = true; });
    kill(static_cast<pid_t>(process), SIGKILL);
    EXPECT_TRUE(eventually([&] { return isDone; }));
    scheduler.advance(1h);
    EXPECT_EQ(launches, 1);
    EXPECT_FALSE(log().contains("encerrando à força"));
}

TEST_F(BackendTest, DoesNotRestartWhenItIsStoppedWhileItWaits) {
    kill(static_cast<pid_t>(start()), SIGKILL);
    ASSERT_TRUE(eventually([this] { return exits == 1; }));
    scheduler.advance(1s);
    EXPECT_TRUE(stopWithin(2s));
    scheduler.advance(1h);
    EXPECT_EQ(launches, 1);
}

TEST_F(BackendTest, TakesItsProcessWithItWhenItIsDestroyed) {
    const EnvironmentVariable behaviour("FAKE_BACKEND", "stubborn");
    const auto process = start();
    backend->stop(1h, [] { ADD_FAILURE() << "nobody is there to be told"; });
    backend.reset();
    EXPECT_TRUE(hasEnded(process));
    QCoreApplication::processEvents();
}

TEST_F(BackendTest, KeepsTheLinesOfTheBackendAndItsOwnWhole) {
    const EnvironmentVariable behaviour("FAKE_BACKEND", "talk");
    backend->start();
    const auto note = u"áudio: "_s + QString(190, u'a');
    const auto otherNote = u"áudio: "_s + QString(190, u'b');
    const auto noting = [&] {
        while (!log().contains("calada\n")) {
            backend->note(note);
            backend->note(otherNote);
        }
    };
    {
        const std::jthread first(noting);
        const std::jthread second(noting);
    }
    qsizetype spoken = 0;
    const auto lines = log().mid(marker.size()).split('\n');
    for (const auto &line : lines) {
        spoken += line.startsWith("voz ") ? 1 : 0;
        EXPECT_TRUE(line.isEmpty() || line == note.toUtf8() || line == otherNote.toUtf8() ||
                    line == "voz " + QByteArray(200, 'v') || line == "calada" || line.startsWith("pronto "))
            << line.constData();
    }
    EXPECT_EQ(spoken, 2000);
}

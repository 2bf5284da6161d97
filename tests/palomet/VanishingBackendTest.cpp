#include "tests/palomet/AccessibleTree.h"
#include "tests/palomet/BackendAtItsPort.h"
#include "tests/palomet/OtherProgram.h"
#include "tests/palomet/ProgramTest.h"
#include "tests/support/FakeKeyboard.h"

using namespace palomet;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using test::eventually;

namespace {

constexpr quint32 escape = 53;

/// The program while it holds the stop key and shows the strip, seen from outside.
class BusyProgram : public test::ProgramTest {
protected:
    BusyProgram() {
        setVariable("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", u"1"_s);
        desktop.tray.appear();
    }

    /// The first line of the tray's menu.
    bool traySays(const QString &word, std::chrono::milliseconds limit = 20s) {
        return eventually(
            [&] {
                const auto menu = desktop.tray.menu();
                return !menu.empty() && menu.front().title().split(u" · "_s).front() == word;
            },
            limit);
    }
    /// The strip's text for a screen reader.
    bool stripSays(const QString &word) {
        return eventually([&] {
            const auto found = tree.all(u"notification"_s);
            return !found.empty() && tree.name(found.front()).split(u':').front() == word;
        });
    }
    [[nodiscard]] bool isStripVisible() const {
        const QStringList visible{u"search"_s, u"--onlyvisible"_s, u"--name"_s, u"^Palomet$"_s};
        return !desktop.display.run(u"xdotool"_s, visible).isEmpty();
    }
    bool isStripGone() {
        return eventually([this] { return !isStripVisible(); });
    }

    void expectBusy(const QString &word) {
        EXPECT_TRUE(traySays(word));
        EXPECT_TRUE(stripSays(word));
        EXPECT_TRUE(isStripVisible());
        EXPECT_FALSE(other.isFree(escape, 0));
    }
    /// It is seen that nobody is there, and the stop key is everybody's again.
    void expectOffline(std::chrono::milliseconds limit) {
        EXPECT_TRUE(traySays(u"Offline"_s, limit));
        EXPECT_TRUE(command({u"--status"_s}).output.startsWith("offline"));
        EXPECT_TRUE(stripSays(u"Offline"_s));
        ASSERT_TRUE(other.take(escape, 0));
        expectEscapeGoesElsewhere();
        EXPECT_TRUE(isStripGone());
        EXPECT_TRUE(traySays(u"Offline"_s));
    }
    /// Here it is again, with nothing to stop.
    void expectWaiting() {
        EXPECT_TRUE(traySays(u"Waiting"_s));
        EXPECT_TRUE(isStripGone());
        expectEscapeGoesElsewhere();
        other.give();
        EXPECT_TRUE(other.isFree(escape, 0));
    }

    void expectEscapeGoesElsewhere() {
        const auto before = other.presses();
        keyboard.strike({test::FakeKeyboard::escape});
        EXPECT_TRUE(eventually([&] { return other.presses() == before + 1; }));
    }

    test::AccessibleTree tree{desktop.bus, environment};
    test::OtherProgram other{desktop.display};
    test::FakeKeyboard keyboard{desktop.display.name()};
};

/// With a backend that is a process, as the program's own is.
class KilledBackend : public BusyProgram {
protected:
    KilledBackend() {
        const auto runtime = desktop.home.filePath(u"resources/bun"_s);
        QFile::remove(runtime);
        EXPECT_TRUE(QFile::link(QStringLiteral(PALOMET_BACKEND_PROGRAM), runtime));
        setVariable("BACKEND_STATE", state);
    }

    void tellNextBackend(const QByteArray &word) const {
        QFile file(state);
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(word);
    }

    /// The signal goes to the backend that runs now.
    void signalBackend(int number) const {
        kill(static_cast<pid_t>(test::processesNamed("pronto", log()).last()), number);
    }

    /// Of a sudden; the next one is there and has not got to its port yet.
    void killBackend() const {
        QFile::remove(state);
        signalBackend(SIGKILL);
    }

    const QString state = desktop.home.filePath(u"backend-state"_s);
};

/// One way to be gone while the process is still there.
struct Absence {
    const char *name;
    void (test::ScriptedBackend::*begin)();
    std::chrono::milliseconds seenWithin;
};

void PrintTo(const Absence &absence, std::ostream *stream) {
    *stream << absence.name;
}

class VanishingBackend : public BusyProgram, public ::testing::WithParamInterface<Absence> {
protected:
    test::BackendAtItsPort backend;
};

} // namespace

TEST_F(KilledBackend, WhileItThinksOrSpeaksGivesEscapeBackAndIsSeenToBeGoneUntilTheNextOneIsThere) {
    tellNextBackend("speaking");
    start();
    expectBusy(u"Speaking"_s);
    killBackend();
    expectOffline(2s);
    tellNextBackend("waiting");
    expectWaiting();
    killBackend();
    EXPECT_TRUE(traySays(u"Offline"_s, 2s));
    tellNextBackend("thinking");
    expectBusy(u"Thinking"_s);
}

TEST_F(KilledBackend, ThatHangsWhileItSpeaksLosesEscapeAfterThatWasPressed) {
    tellNextBackend("speaking");
    start();
    expectBusy(u"Speaking"_s);
    signalBackend(SIGSTOP);
    keyboard.strike({test::FakeKeyboard::escape});
    // Three seconds for the command, two for the state.
    expectOffline(7s);
    signalBackend(SIGCONT);
    EXPECT_TRUE(traySays(u"Speaking"_s));
}

TEST_P(VanishingBackend, WhileItThinksOrSpeaksGivesEscapeBackAndIsSeenToBeGoneUntilItIsThereAgain) {
    for (const auto &busy : {u"Thinking"_s, u"Speaking"_s}) {
        backend.enter(busy.toLower());
        if (program.state() == QProcess::NotRunning)
            start();
        else
            backend.tell("phase");
        expectBusy(busy);
        (backend.http.*GetParam().begin)();
        expectOffline(GetParam().seenWithin);
        backend.enter(u"waiting"_s);
        backend.http.goDown();
        backend.http.comeUp();
        expectWaiting();
        EXPECT_TRUE(eventually([this] { return backend.http.last("/events")->isOpen(); }));
    }
}

INSTANTIATE_TEST_SUITE_P(However, VanishingBackend,
                         ::testing::Values(Absence{"RefusesConnections", &test::ScriptedBackend::goDown, 2s},
                                           Absence{"IgnoresConnections", &test::ScriptedBackend::fallDeaf, 3s}),
                         [](const auto &tested) { return tested.param.name; });

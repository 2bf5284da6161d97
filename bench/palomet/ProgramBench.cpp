#include "bench/palomet/WindowWatch.h"
#include "bench/support/Row.h"
#include "tests/palomet/Desktop.h"
#include "tests/support/PrivateSoundServer.h"
#include "tests/support/Processes.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QElapsedTimer>

#include <unistd.h>

#include <cstdio>
#include <cstdlib>

// The cost of the whole program beside the least that shows an item in the tray, on a desktop of the bench's own with
// a sound server, a microphone and the bundled engine, which takes the engine's port.

using namespace palomet;
using namespace palomet::test;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QString bare = QStringLiteral(PALOMET_BARE_TRAY);
const QString whole = QStringLiteral(PALOMET_EXECUTABLE);

void require(bool holds, const char *what) {
    if (holds)
        return;
    std::fprintf(stderr, "program-bench: %s\n", what);
    std::exit(1);
}

double milliseconds(const QElapsedTimer &timer) {
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

/// The memory that is the process's own, with its part of what it shares.
double megabytes(qint64 process) {
    const auto rollup = processFile(process, u"smaps_rollup"_s);
    const auto begin = rollup.indexOf("\nPss:") + 5;
    return rollup.mid(begin, rollup.indexOf("kB", begin) - begin).trimmed().toDouble() * 1024 / 1e6;
}

double processorSeconds(qint64 process) {
    const auto stat = processFile(process, u"stat"_s);
    // The name before it may hold blanks.
    const auto fields = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
    return (fields.value(11).toDouble() + fields.value(12).toDouble()) / static_cast<double>(sysconf(_SC_CLK_TCK));
}

class Machine {
public:
    Machine() {
        m_desktop.tray.appear();
        m_sound.start();
        m_sound.addSpeakers(u"speakers"_s);
        m_sound.addMicrophone(u"microphone"_s, u"Microphone"_s);
        m_sound.setDefaultInput(u"microphone"_s);
        m_environment = m_desktop.environment();
        m_environment.insert(u"PULSE_SERVER"_s, QString::fromStdString(m_sound.address()));
        m_environment.insert(u"XDG_STATE_HOME"_s, m_desktop.home.filePath(u"state"_s));
    }

    [[nodiscard]] const QByteArray &display() const { return m_desktop.display.name(); }

    /// Asks the running program for its window.
    void openWindow() {
        auto call = QDBusMessage::createMethodCall(u"org.palomet.Palomet"_s, u"/org/palomet/Palomet"_s,
                                                   u"org.freedesktop.Application"_s, u"Activate"_s);
        call << QVariantMap();
        m_bus.send(call);
    }

    /// Starts the program; returns the milliseconds until its item is registered.
    double start(QProcess &process, const QString &program) {
        const auto items = m_desktop.tray.items().size();
        process.setProcessEnvironment(m_environment);
        process.setStandardOutputFile(QProcess::nullDevice());
        process.setStandardErrorFile(QProcess::nullDevice());
        QElapsedTimer timer;
        timer.start();
        process.start(program);
        require(eventually([&] { return m_desktop.tray.items().size() > items; }), "no item in the tray");
        return milliseconds(timer);
    }

    static void end(QProcess &process) {
        process.terminate();
        require(eventually([&] { return process.state() == QProcess::NotRunning; }), "it does not end");
    }

    /// Runs `palomet` with an argument to its end.
    QByteArray tell(const QString &argument) const {
        QProcess process;
        process.setProcessEnvironment(m_environment);
        process.start(whole, {argument});
        require(eventually([&] { return process.state() == QProcess::NotRunning; }), "a command does not end");
        return process.readAllStandardOutput();
    }

    [[nodiscard]] bool isMicrophoneOpen() const {
        return !m_sound.control({u"list"_s, u"short"_s, u"source-outputs"_s}).isEmpty();
    }

private:
    Desktop m_desktop;
    PrivateSoundServer m_sound{PrivateSoundServer::Kind::PulseAudio};
    QProcessEnvironment m_environment;
    QDBusConnection m_bus = m_desktop.bus.connect();
};

/// Per cent of a core, while nothing happens.
double idleCost(const QProcess &process, std::chrono::seconds duration) {
    const double before = processorSeconds(process.processId());
    QDeadlineTimer deadline(duration);
    eventually([&] { return deadline.hasExpired(); }, duration * 2);
    return (processorSeconds(process.processId()) - before) / static_cast<double>(duration.count()) * 100;
}

void measureStart(Machine &machine, int rounds) {
    bench::Sample floor;
    bench::Sample here;
    for (int round = 0; round < rounds; ++round) {
        for (const auto &program : {bare, whole}) {
            QProcess process;
            (program == bare ? floor : here).add(machine.start(process, program));
            Machine::end(process);
        }
    }
    bench::print({"start to the tray item registered, p50", "a bare tray program", floor.percentile(0.5),
                  here.percentile(0.5), 3 * floor.percentile(0.5)});
}

/// How long from the request to a window with something in it, the first time and from then on.
struct Appearance {
    bench::Sample first;
    bench::Sample again;

    void add(double milliseconds, bool isFirst) { (isFirst ? first : again).add(milliseconds); }
};

template <typename Toggle>
void show(bench::WindowWatch &watch, Appearance &appearance, int times, Toggle toggle) {
    for (int time = 0; time < times; ++time) {
        QElapsedTimer timer;
        timer.start();
        toggle(true);
        require(watch.awaitShown(), "no window");
        appearance.add(milliseconds(timer), time == 0);
        if (time + 1 < times) {
            eventually([] { return false; }, 200ms);
            toggle(false);
            require(watch.awaitHidden(), "the window stays");
            eventually([] { return false; }, 200ms);
        }
    }
}

void measureWindow(Machine &machine, int rounds) {
    constexpr int times = 5;
    Appearance bareWindow;
    Appearance window;
    bench::Sample bareMegabytes;
    bench::Sample wholeMegabytes;
    bench::WindowWatch watch(machine.display());
    for (int round = 0; round < rounds; ++round) {
        QProcess least;
        machine.start(least, bare);
        show(watch, bareWindow, times, [&](bool) {
            least.write("\n");
            require(least.waitForBytesWritten(), "the bare program does not listen");
        });
        eventually([] { return false; }, 1s);
        bareMegabytes.add(megabytes(least.processId()));
        Machine::end(least);

        QProcess program;
        machine.start(program, whole);
        require(eventually([&] { return machine.tell(u"--status"_s).startsWith("waiting\n"); }, 60s),
                "it does not wait");
        require(eventually([&] { return machine.isMicrophoneOpen(); }), "no microphone");
        eventually([] { return false; }, 2s);
        show(watch, window, times, [&](bool isShown) { isShown ? machine.openWindow() : watch.askToClose(); });
        eventually([] { return false; }, 2s);
        wholeMegabytes.add(megabytes(program.processId()));
        Machine::end(program);
    }
    const auto row = [](const char *what, const bench::Sample &floor, const bench::Sample &here, double reach,
                        const char *unit) {
        bench::print(
            {what, "a bare tray program's empty one", floor.percentile(0.5), here.percentile(0.5), reach, unit});
    };
    row("the window shown for the first time, p50", bareWindow.first, window.first, 300, "ms");
    row("the window shown again, p50", bareWindow.again, window.again, 30, "ms");
    row("memory (PSS), microphone and window open, p50", bareMegabytes, wholeMegabytes, 80, "MB");
}

void measureIdling(Machine &machine, std::chrono::seconds duration, int rounds) {
    QProcess least;
    machine.start(least, bare);
    eventually([] { return false; }, 1s);
    const double leastMegabytes = megabytes(least.processId());
    const double leastCost = idleCost(least, duration);
    Machine::end(least);

    QProcess program;
    machine.start(program, whole);
    require(eventually([&] { return machine.tell(u"--status"_s).startsWith("waiting\n"); }, 60s), "it does not wait");
    require(eventually([&] { return machine.isMicrophoneOpen(); }), "no microphone");
    eventually([] { return false; }, 5s);
    bench::print({"memory (PSS), microphone open, window never opened", "a bare tray program", leastMegabytes,
                  megabytes(program.processId()), 65, "MB"});
    bench::print({"idle: waiting, microphone open with echo cancellation, window closed", "a bare tray program",
                  leastCost, idleCost(program, duration), 2.5, "% of a core"});

    bench::Sample floor;
    bench::Sample here;
    for (int round = 0; round < rounds; ++round) {
        QElapsedTimer timer;
        timer.start();
        machine.tell(u"--version"_s);
        floor.add(milliseconds(timer));
        timer.start();
        machine.tell(u"--listen"_s);
        here.add(milliseconds(timer));
    }
    bench::print({"palomet --listen, its own start included, p50", "palomet --version", floor.percentile(0.5),
                  here.percentile(0.5), 100});
    Machine::end(program);
}

} // namespace

/// Usage: program-bench [SECONDS] [ROUNDS]
int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    const auto arguments = QCoreApplication::arguments();
    const std::chrono::seconds duration{std::max(1, arguments.value(1, u"20"_s).toInt())};
    const int rounds = std::max(1, arguments.value(2, u"10"_s).toInt());
    Machine machine;
    measureStart(machine, rounds);
    measureIdling(machine, duration, rounds);
    measureWindow(machine, std::max(1, rounds / 2));
}

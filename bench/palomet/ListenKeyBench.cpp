#include "bench/palomet/Surroundings.h"
#include "tests/palomet/BackendAtItsPort.h"
#include "tests/palomet/Desktop.h"
#include "tests/support/FakeKeyboard.h"

#include <QCoreApplication>
#include <QThread>

#include <array>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <random>
#include <thread>

// The listen key never misses: so many presses at random moments, while the keyboard's layouts and locks and the
// backend's phases change all the time, are so many commands. The program itself, on a desktop of its own; its port
// must be free. Fails when the two numbers differ.

using namespace palomet;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using test::FakeKeyboard;

namespace {

constexpr std::array phases{"waiting", "listening", "hearing", "drafting", "thinking", "speaking", "thinking"};

struct Changes {
    int layouts = 0;
    int mappings = 0;
    int locks = 0;
};

class Chance {
public:
    explicit Chance(unsigned seed)
        : m_engine(seed) {}

    int below(int limit) { return std::uniform_int_distribution(0, limit - 1)(m_engine); }
    void pause(int mostMicroseconds) {
        std::this_thread::sleep_for(std::chrono::microseconds(below(mostMicroseconds)));
    }

private:
    std::mt19937 m_engine;
};

/// Presses Option and Space.
void press(const QByteArray &display, int presses, unsigned seed, std::atomic<int> &pressed) {
    FakeKeyboard keyboard(display);
    Chance chance(seed);
    for (int press = 0; press < presses; ++press) {
        chance.pause(12'000);
        keyboard.press(FakeKeyboard::alt);
        chance.pause(1'000);
        keyboard.press(FakeKeyboard::space);
        ++pressed;
        chance.pause(4'000);
        keyboard.release(FakeKeyboard::space);
        keyboard.release(FakeKeyboard::alt);
    }
}

/// Switches layouts, turns locks and maps the keyboard anew, until it is told to end.
Changes disturb(const test::Desktop &desktop, unsigned seed, const std::atomic<bool> &isEnding) {
    constexpr std::array mappings{"us,ru", "fr,us", "br,us", "de,ru", "us,ru"};
    constexpr std::array<quint8, 3> locks{66, 77, 78}; // Caps, Num, Scroll.
    FakeKeyboard keyboard(desktop.display.name());
    Chance chance(seed);
    Changes changes;
    while (!isEnding) {
        chance.pause(40'000);
        const int kind = chance.below(10);
        if (kind == 0) {
            QProcess setxkbmap;
            setxkbmap.setProcessEnvironment(desktop.environment());
            const auto mapping = mappings.at(static_cast<std::size_t>(chance.below(mappings.size())));
            setxkbmap.start(u"setxkbmap"_s, {QString::fromLatin1(mapping)});
            setxkbmap.waitForFinished();
            ++changes.mappings;
        } else if (kind < 6) {
            keyboard.activateGroup(static_cast<quint8>(chance.below(2)));
            ++changes.layouts;
        } else {
            keyboard.strike({locks.at(static_cast<std::size_t>(chance.below(locks.size())))});
            ++changes.locks;
        }
    }
    return changes;
}

} // namespace

/// Usage: listen-key-bench [PRESSES] [SEED]
int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    const auto arguments = QCoreApplication::arguments();
    const int presses = std::max(1, arguments.value(1, u"10000"_s).toInt());
    const auto seed = arguments.value(2, u"1"_s).toUInt();

    test::Desktop desktop;
    const auto environment = bench::surroundingsOn(desktop);
    desktop.display.run(u"setxkbmap"_s, {u"us,ru"_s});

    test::BackendAtItsPort backend;
    int commands = 0;
    backend.http.on("/listen", [&](const test::ScriptedBackend::ExchangePointer &exchange) {
        ++commands;
        exchange->reply("{}");
    });
    bench::Program palomet(environment);
    if (!backend.isFollowed()) {
        std::fprintf(stderr, "listen-key-bench: the program does not come up\n");
        return 1;
    }

    std::atomic<int> pressed{0};
    std::atomic<bool> isEnding{false};
    Changes changes;
    const std::unique_ptr<QThread> disturber(QThread::create([&] { changes = disturb(desktop, seed + 1, isEnding); }));
    const std::unique_ptr<QThread> fingers(
        QThread::create([&] { press(desktop.display.name(), presses, seed, pressed); }));
    disturber->start();
    fingers->start();

    Chance chance(seed + 2);
    int phaseChanges = 0;
    QTimer turn;
    QObject::connect(&turn, &QTimer::timeout, &turn, [&] {
        const auto phase = phases.at(static_cast<std::size_t>(chance.below(phases.size())));
        backend.enter(QString::fromLatin1(phase));
        backend.tell("phase");
        ++phaseChanges;
        turn.start(std::chrono::milliseconds(20 + chance.below(200)));
    });
    turn.start(0);
    test::eventually([&] { return fingers->isFinished(); }, 1h);
    isEnding = true;
    disturber->wait();
    test::eventually([&] { return commands >= presses; });
    // One more than there should be would come now.
    turn.stop();
    test::eventually([&] { return commands > presses; }, 500ms);
    palomet.end();

    const bool isEqual = commands == pressed;
    std::printf(
        "| listen key pressed while %d layouts, %d keyboards, %d locks and %d phases change | | %d commands | of %d "
        "presses | %s |\n",
        changes.layouts, changes.mappings, changes.locks, phaseChanges, commands, pressed.load(),
        isEqual ? "yes" : "no");
    return isEqual ? 0 : 1;
}

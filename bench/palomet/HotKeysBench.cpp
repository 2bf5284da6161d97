#include "bench/palomet/Surroundings.h"
#include "bench/support/Row.h"
#include "tests/palomet/Desktop.h"
#include "tests/support/FakeKeyboard.h"
#include "tests/support/ScriptedBackend.h"

#include <QCoreApplication>
#include <QThread>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <thread>

// How long a hot key and a command take, with the program itself on a desktop of its own. Prints each figure beside its
// floor, taken in the same run: the bare grab of a key, and a bare call over the session bus.

using namespace palomet;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using bench::Sample;
using test::FakeKeyboard;

namespace {

using Clock = std::chrono::steady_clock;

void require(bool holds, const char *what) {
    if (holds)
        return;
    std::fprintf(stderr, "hot-keys-bench: %s\n", what);
    std::exit(1);
}

/// A key press until its event has come to who holds the key, on a connection that does nothing else.
Sample measureBareGrab(const QByteArray &display, FakeKeyboard &keyboard, int rounds) {
    constexpr quint8 f9 = 75;
    auto *connection = xcb_connect(display.constData(), nullptr);
    const auto root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    const auto cookie =
        xcb_grab_key_checked(connection, 1, root, XCB_MOD_MASK_ANY, f9, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    require(xcb_request_check(connection, cookie) == nullptr, "the key is held by somebody");
    const auto await = [connection](int type) {
        for (bool isThere = false; !isThere;) {
            auto *event = xcb_wait_for_event(connection);
            require(event != nullptr, "the display is gone");
            isThere = (event->response_type & 0x7F) == type;
            std::free(event);
        }
    };
    Sample sample;
    for (int round = 0; round < rounds; ++round) {
        std::this_thread::sleep_for(5ms);
        const auto begin = Clock::now();
        keyboard.press(f9);
        await(XCB_KEY_PRESS);
        sample.add(Clock::now() - begin);
        keyboard.release(f9);
        await(XCB_KEY_RELEASE);
    }
    xcb_disconnect(connection);
    return sample;
}

/// A press of Option and Space until the command has come to the backend.
Sample measureHotKey(FakeKeyboard &keyboard, const std::atomic<int> &commands, const std::atomic<Clock::time_point> &at,
                     int rounds) {
    Sample sample;
    for (int round = 0; round < rounds; ++round) {
        std::this_thread::sleep_for(20ms);
        const int before = commands;
        keyboard.press(FakeKeyboard::alt);
        const auto begin = Clock::now();
        keyboard.press(FakeKeyboard::space);
        for (const auto limit = begin + 10s; commands == before; std::this_thread::sleep_for(100us))
            require(Clock::now() < limit, "the hot key does nothing");
        sample.add(at.load() - begin);
        keyboard.release(FakeKeyboard::space);
        keyboard.release(FakeKeyboard::alt);
    }
    return sample;
}

/// A program from its start to its end.
Sample measureProgram(const QProcessEnvironment &environment, const QString &program, const QStringList &arguments,
                      int rounds) {
    Sample sample;
    for (int round = 0; round < rounds; ++round) {
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        const auto begin = Clock::now();
        process.start(program, arguments);
        require(process.waitForFinished() && process.exitCode() == 0, qPrintable(program + u" fails"_s));
        sample.add(Clock::now() - begin);
    }
    return sample;
}

} // namespace

/// Usage: hot-keys-bench [ROUNDS]
int main(int argc, char **argv) {
    QCoreApplication application(argc, argv);
    const int rounds = std::max(1, QCoreApplication::arguments().value(1, u"200"_s).toInt());

    test::Desktop desktop;
    const auto environment = bench::surroundingsOn(desktop);

    test::ScriptedBackend backend(4780);
    std::atomic<int> commands{0};
    std::atomic<Clock::time_point> commandCame;
    backend.on("/listen", [&](const test::ScriptedBackend::ExchangePointer &exchange) {
        commandCame = Clock::now();
        ++commands;
        exchange->reply("{}");
    });

    bench::Program palomet(environment);
    require(test::eventually([&] { return backend.count("/events") > 0; }), "the program does not come up");

    const std::unique_ptr<QThread> driver(QThread::create([&] {
        FakeKeyboard keyboard(desktop.display.name());
        const auto grab = measureBareGrab(desktop.display.name(), keyboard, rounds);
        const auto hotKey = measureHotKey(keyboard, commands, commandCame, rounds);
        const QString executable = u"" PALOMET_EXECUTABLE ""_s;
        const auto call =
            measureProgram(environment, u"gdbus"_s,
                           {u"call"_s, u"--session"_s, u"--dest"_s, u"org.palomet.Palomet"_s, u"--object-path"_s,
                            u"/org/palomet/Palomet"_s, u"--method"_s, u"org.palomet.Palomet.Control.Status"_s},
                           rounds / 2 + 1);
        const auto listen = measureProgram(environment, executable, {u"--listen"_s}, rounds / 2 + 1);
        const auto version = measureProgram(environment, executable, {u"--version"_s}, rounds / 2 + 1);
        print("hot key to the command's bytes", hotKey, "bare grab", grab, 10);
        print("palomet --listen, start included", listen, "gdbus call", call, 100);
        print("of that the program's own start", version, "gdbus call", call, std::nullopt);
    }));
    QObject::connect(driver.get(), &QThread::finished, &application, &QCoreApplication::quit);
    driver->start();
    QCoreApplication::exec();
    palomet.end();
    return 0;
}

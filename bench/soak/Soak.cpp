#include "bench/soak/Faults.h"
#include "bench/soak/Footprint.h"
#include "bench/soak/Stage.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdio>

// One run of the program through a day's worth of a busy backend, and then through the end of everything that it
// depends on, again and again: what it holds before and after, and that everything is back each time. The engine's
// port must be free.

using namespace palomet;
using namespace palomet::bench;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using test::eventually;

namespace {

/// A request and its answer in three sentences, as the bundled engine tells of it.
void converse(Stage &stage) {
    const auto enter = [&](const QString &state) {
        stage.backend.enter(state);
        stage.backend.tell("phase");
        require(eventually([&] { return stage.state() == state; }), "a state is not shown");
    };
    const auto level = [&](const QByteArray &name) {
        for (int step = 0; step < 40; ++step)
            stage.backend.http.last("/events")->event(name, "0." + QByteArray::number(step));
    };
    enter(u"listening"_s);
    enter(u"hearing"_s);
    level("level");
    enter(u"thinking"_s);
    enter(u"speaking"_s);
    for (int sentence = 0; sentence < 3; ++sentence) {
        stage.backend.http.last("/events")->event("spoken", "\"uma frase\"");
        level("outLevel");
    }
    stage.speak();
    stage.backend.enter(u"waiting"_s);
    stage.backend.tell("turnEnd");
    require(eventually([&] { return stage.state() == u"waiting"_s; }), "the end of a turn is not shown");
    stage.forget();
}

/// Looks once what was given back has had the time to go.
Footprint settled(const Stage &stage) {
    pass(12s);
    return Footprint::of(stage.process());
}

} // namespace

/// Usage: soak [TURNS] [KILLS] [window]; a fault of the other kinds comes as often as in 200 kills 50, 50 and 20.
/// The window is open if it is asked for.
int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    const auto arguments = QCoreApplication::arguments();
    const int turns = std::max(1, arguments.value(1, u"288"_s).toInt());
    const int kills = std::max(1, arguments.value(2, u"200"_s).toInt());
    Stage stage;
    stage.start();
    if (arguments.value(3) == u"window"_s)
        stage.openWindow();
    // Everything once, so that what is made on first use is there.
    for (int round = 0; round < 3; ++round) {
        converse(stage);
        killBackend(stage);
        killSoundServer(stage);
        dropLink(stage);
        restartTray(stage);
    }
    print("after three of everything", settled(stage));

    for (int turn = 1; turn <= turns; ++turn) {
        converse(stage);
        if (turn % 48 == 0)
            print("on the way", Footprint::of(stage.process()));
    }
    std::printf("%d turns\n", turns);
    print("after them", settled(stage));

    int soundServers = 0;
    int links = 0;
    int trays = 0;
    for (int round = 1; round <= kills; ++round) {
        killBackend(stage);
        if (round % 4 == 0) {
            killSoundServer(stage);
            ++soundServers;
        }
        if (round % 4 == 2) {
            dropLink(stage);
            ++links;
        }
        if (round % 10 == 0) {
            restartTray(stage);
            ++trays;
        }
        if (round % 50 == 0)
            print("on the way", Footprint::of(stage.process()));
    }
    std::printf("%d kills of the backend, %d of the sound server, %d drops of the link, %d restarts of the tray\n",
                kills, soundServers, links, trays);
    print("after them", settled(stage));
    stage.end();
    std::puts("it ended in order; no backend is left");
}

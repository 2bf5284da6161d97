#include "bench/soak/Faults.h"

#include "bench/soak/Stage.h"
#include "tests/support/Processes.h"

#include <signal.h>

namespace palomet::bench {

using namespace Qt::StringLiterals;
using test::eventually;

void killBackend(Stage &stage) {
    const auto before = stage.backends();
    stage.backend.audio.drop();
    stage.backend.http.goDown();
    kill(static_cast<pid_t>(before.back()), SIGKILL);
    require(eventually([&] { return stage.state() == u"offline"_s; }), "a backend that was killed is not offline");
    require(eventually([&] { return stage.backends().size() == before.size() + 1; }), "no new backend");
    for (const auto process : before)
        require(test::hasEnded(process), "a backend that was killed lives on");
    stage.forget();
    stage.backend.http.comeUp();
    require(eventually([&] { return stage.state() == u"waiting"_s; }), "a new backend is not followed");
    require(eventually([&] { return stage.backend.http.last("/events") != nullptr; }), "no event stream");
    require(eventually([&] { return stage.isHeard(); }), "a new backend does not hear");
}

void killSoundServer(Stage &stage) {
    stage.sound.kill();
    require(eventually([&] { return !stage.isHeard(); }), "a microphone without a sound server");
    stage.sound.start();
    stage.addDevices();
    require(eventually([&] { return stage.isHeard(); }), "no microphone after the sound server's end");
    stage.speak();
}

void dropLink(Stage &stage) {
    const int before = stage.backend.audio.connections;
    stage.backend.audio.drop();
    require(eventually([&] { return stage.backend.audio.connections > before && stage.isHeard(); }), "no new link");
}

void restartTray(Stage &stage) {
    stage.desktop.tray.vanish();
    stage.desktop.tray.appear();
    require(eventually([&] { return stage.desktop.tray.items().size() == 1; }), "no item in the new tray");
    require(eventually([&] { return !stage.desktop.tray.menu().empty(); }), "no menu in the new tray");
}

} // namespace palomet::bench

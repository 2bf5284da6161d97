#include "app/AutostartCommand.h"

#include <cstdio>

namespace palomet {

namespace {

int fail(const QString &reason) {
    std::fprintf(stderr, "palomet: %s\n", reason.toLocal8Bit().constData());
    return 1;
}

int done(const std::optional<Failure> &problem) {
    return problem ? fail(problem->reason) : 0;
}

} // namespace

int runAutostartCommand(CommandLine::Autostart wanted, Autostart &autostart) {
    switch (wanted) {
    case CommandLine::Autostart::On:
        return done(autostart.turnOn());
    case CommandLine::Autostart::Off:
        return done(autostart.turnOff());
    case CommandLine::Autostart::Status:
        break;
    }
    const auto isOn = autostart.isOn();
    if (!isOn)
        return fail(isOn.reason());
    std::puts(*isOn ? "on" : "off");
    return 0;
}

} // namespace palomet

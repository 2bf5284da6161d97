#include "command/AutostartCommand.h"

#include "command/fail.h"

#include <cstdio>

namespace palomet {

namespace {

int done(const std::optional<Failure> &problem) {
    return problem ? fail(problem->reason, 1) : 0;
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
        return fail(isOn.reason(), 1);
    std::puts(*isOn ? "on" : "off");
    return 0;
}

} // namespace palomet

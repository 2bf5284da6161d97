#pragma once

#include "command/Autostart.h"
#include "command/CommandLine.h"

namespace palomet {

/// Does what the command line asks about starting with the session, prints "on" or "off" if that is what is asked, and
/// gives the exit code: 0 when it is done, 1 with one line on standard error when it cannot be.
int runAutostartCommand(CommandLine::Autostart wanted, Autostart &autostart);

} // namespace palomet

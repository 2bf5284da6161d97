#pragma once

#include "command/CommandLine.h"
#include "command/RemoteClient.h"

namespace palomet {

/// Does what the command line asks of the running instance, prints what it answers, and gives the exit code: 0 when it
/// is done, 1 with one line on standard error when none runs or it refused, 2 when the text to say is no good. With
/// `isFollowing` it runs the event loop until it is interrupted or the running instance ends. `activation` goes with a
/// command, as `RemoteCommand` has it.
int runRemoteCommand(const CommandLine &line, RemoteClient &client, const QString &activation);

} // namespace palomet

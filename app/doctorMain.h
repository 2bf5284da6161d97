#pragma once

namespace palomet {

/// Runs `--doctor` as a program of its own, with the desktop's real services, and gives the exit code.
int runDoctor(int argumentCount, char **arguments);

} // namespace palomet

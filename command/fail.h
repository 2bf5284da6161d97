#pragma once

#include <QString>

namespace palomet {

/// Says on standard error, in one line, why the program cannot do what it was started for. Gives `exitCode` back.
int fail(const QString &reason, int exitCode);

} // namespace palomet

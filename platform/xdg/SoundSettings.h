#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace palomet {

/// A program with its arguments.
using ProgramCall = QStringList;

/// The programs that may show the user the microphone's settings: the desktop's own panel first, the sound server's
/// mixer last. `desktop` is the desktop's name, as `$XDG_CURRENT_DESKTOP` has it.
[[nodiscard]] std::vector<ProgramCall> microphoneSettings(const QString &desktop);

/// Starts the first of them that is there; whether one was.
bool openFirst(const std::vector<ProgramCall> &calls);

} // namespace palomet

#pragma once

#include "ui/screens/BrainScreen.h"

class QWindow;

namespace palomet {

/// The system's window for picking folders, several at once, beginning in the user's home. `owner` may be null; the
/// dialog stands in front of it. A folder that is no longer there when it is picked is not given on.
void askForFolders(QWindow *owner, const QString &home, std::function<void(const QStringList &)> picked);

} // namespace palomet

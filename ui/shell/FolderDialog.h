#pragma once

#include "ui/screens/BrainScreen.h"

class QWindow;

namespace palomet {

/// The toolkit's window for picking folders, for where the desktop has none: several at once, beginning in the user's
/// home. `owner` may be null; the
/// dialog stands in front of it. A folder that is no longer there when it is picked is not given on.
void askForFolders(QWindow *owner, const QString &home, std::function<void(const QStringList &)> picked);

} // namespace palomet

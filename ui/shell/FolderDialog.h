#pragma once

#include "ui/screens/BrainScreen.h"

class QWindow;

namespace palomet {

/// Opens the toolkit's dialog for picking folders, several at once, where the desktop has no such dialog. It begins in
/// the user's home and stands in front of `owner`, which may be null. `picked` gets only folders that still exist.
void askForFolders(QWindow *owner, const QString &home, std::function<void(const QStringList &)> picked);

} // namespace palomet

#pragma once

#include <QString>

#include <optional>

namespace palomet {

/// The path of the resource folder, with the runtime, the engine, the texts, the icons, the faces and the sounds in it:
/// what `$PALOMET_RESOURCES` names; if that says nothing, "resources" beside the executable, else "share/palomet"
/// below the prefix in whose "bin" the executable is. None when there is no such folder.
[[nodiscard]] std::optional<QString> resourceFolder(const QString &executableFolder);

} // namespace palomet

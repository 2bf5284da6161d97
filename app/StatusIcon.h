#pragma once

#include "app/DesktopLook.h"

#include <QIcon>
#include <QString>

#include <optional>

namespace palomet {

/// The picture of the tray item, drawn in every usual size in one colour that is seen on the desktop's panel; where the
/// icon is installed it also has a name, by which the panel can tint it itself. On a panel that may be light or dark it
/// is dark with a thin light edge, and has no name, which some panels draw as it is. It is Icons/menubar.svg of the
/// resource folder, or the letter A when that is missing or no picture.
[[nodiscard]] QIcon statusIcon(const std::optional<QString> &resources, DesktopLook::Scheme panel);

} // namespace palomet

#pragma once

#include "app/DesktopLook.h"

#include <QIcon>
#include <QString>

#include <optional>

namespace palomet {

/// The picture of the tray item, in one colour that is seen on the desktop's panel: by name, which the panel can tint
/// by itself, where the icon is installed, and drawn in every usual size. It is Icons/menubar.svg of the resource
/// folder, or the letter A when that is missing or no picture.
[[nodiscard]] QIcon statusIcon(const std::optional<QString> &resources, DesktopLook::Scheme panel);

} // namespace palomet

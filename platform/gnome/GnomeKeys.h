#pragma once

#include "platform/gnome/GnomeSettings.h"
#include "shortcuts/DesktopKeys.h"
#include "shortcuts/KeyboardLayout.h"

namespace palomet {

/// The keys of GNOME's shell, window manager and settings daemon, as its settings have them. The X server does not tell
/// of them: some are held by the input extension, where a key is granted once more, and some on each window alone.
class GnomeKeys final : public DesktopKeys {
public:
    /// Whether the desktop, as `XDG_CURRENT_DESKTOP` names it, has these settings.
    [[nodiscard]] static bool isFor(const QString &desktop);

    /// `layout` outlives this.
    explicit GnomeKeys(const KeyboardLayout &layout)
        : m_layout(layout) {}

    /// "activate window menu", or what the user calls a command of his own. The settings are read anew each time: some
    /// 150 keys, from memory.
    [[nodiscard]] QString actionOn(quint32 keyCode, quint32 modifiers) override;

private:
    const KeyboardLayout &m_layout;
    GnomeSettings m_settings;
};

} // namespace palomet

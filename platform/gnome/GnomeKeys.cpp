#include "platform/gnome/GnomeKeys.h"

#include "platform/gnome/Accelerator.h"

#include <algorithm>
#include <array>

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array schemas{
    "org.gnome.desktop.wm.keybindings"_L1,
    "org.gnome.mutter.keybindings"_L1,
    "org.gnome.shell.keybindings"_L1,
    "org.gnome.settings-daemon.plugins.media-keys"_L1,
};
/// The places of the user's own commands are a setting among the daemon's.
constexpr auto places = "custom-keybindings"_L1;
constexpr auto command = "org.gnome.settings-daemon.plugins.media-keys.custom-keybinding"_L1;

/// The first text of that setting.
QString textOf(const std::vector<GnomeSettings::Setting> &settings, QLatin1StringView key) {
    const auto found = std::ranges::find(settings, key, &GnomeSettings::Setting::key);
    return found == settings.end() ? QString() : found->texts.constFirst();
}

} // namespace

bool GnomeKeys::isFor(const QString &desktop) {
    return desktop.split(u':').contains("GNOME"_L1);
}

QString GnomeKeys::actionOn(quint32 keyCode, quint32 modifiers) {
    const auto isIt = [&](const QString &text) { return Accelerator(text).is(keyCode, modifiers, m_layout); };
    for (const auto schema : schemas) {
        for (const auto &[key, texts] : m_settings.read(schema)) {
            if (key == places) {
                for (const auto &place : texts) {
                    const auto own = m_settings.read(command, place);
                    const auto name = textOf(own, "name"_L1);
                    if (isIt(textOf(own, "binding"_L1)))
                        return name.isEmpty() ? u"a command of your own"_s : name;
                }
            } else if (std::ranges::any_of(texts, isIt)) {
                return QString(key).replace(u'-', u' ');
            }
        }
    }
    return {};
}

} // namespace palomet

#include "ui/screens/SettingGroup.h"

#include "localization/Localization.h"

namespace palomet {

SettingGroup::SettingGroup(Screen &screen, const char *titleKey)
    : QObject(&screen)
    , m_screen(screen)
    , m_titleKey(titleKey) {}

QString SettingGroup::title() const {
    return L(m_titleKey);
}

} // namespace palomet

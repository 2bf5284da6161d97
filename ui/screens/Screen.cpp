#include "ui/screens/Screen.h"

namespace palomet {

Screen::Screen(PalometModel &model)
    : m_model(model) {}

void Screen::setActive(bool isActive) {
    if (m_isActive == isActive)
        return;
    m_isActive = isActive;
    if (!isActive)
        return becameInactive();
    Q_EMIT activated();
    updateAll();
}

} // namespace palomet

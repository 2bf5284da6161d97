#include "ui/screens/Screen.h"

namespace palomet {

Screen::Screen(PalometModel &model)
    : m_model(model) {}

void Screen::setActive(bool isActive) {
    if (m_isActive == isActive)
        return;
    m_isActive = isActive;
    if (isActive)
        updateAll();
    else
        becameInactive();
}

const Snapshot::Settings *Screen::settings() const {
    return snapshot() ? &snapshot()->settings : nullptr;
}

} // namespace palomet

#pragma once

#include "shortcuts/KeyboardLayout.h"

namespace palomet {

/// A combination as GNOME's settings write it: "<Alt>space", "<Primary><Shift>F2", "<Super>Above_Tab".
class Accelerator {
public:
    explicit Accelerator(const QString &text);

    /// Whether it is that combination of a virtual key code and bits of `HotKeyGrabber::Modifier`. As the window
    /// manager does, it looks for a letter that the layout does not have where the US layout has it.
    [[nodiscard]] bool is(quint32 keyCode, quint32 modifiers, const KeyboardLayout &layout) const;

private:
    quint32 m_keysym = 0; ///< 0 where it is none, or one with a modifier that we do not have.
    quint32 m_modifiers = 0;
    bool m_isAboveTab = false;
};

} // namespace palomet

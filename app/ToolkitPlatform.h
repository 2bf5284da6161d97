#pragma once

#include "base/DisplayRoute.h"

namespace palomet {

/// Has the toolkit take a way to the screen. It is told so by the environment; programs that are started from here
/// decide for themselves. Main thread only.
class ToolkitPlatform {
public:
    /// Before the application object is made.
    explicit ToolkitPlatform(const DisplayRoute &route);

    /// Once the application object is made.
    void settle() const;

private:
    bool m_isChosen = false;
    bool m_isWithoutDriver = false;
};

} // namespace palomet

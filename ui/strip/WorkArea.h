#pragma once

#include <QRect>

namespace palomet {

/// Port: what panels and docks leave of a screen, in the display server's own pixels. Main thread only.
class WorkArea {
public:
    WorkArea() = default;
    WorkArea(const WorkArea &) = delete;
    WorkArea &operator=(const WorkArea &) = delete;
    virtual ~WorkArea() = default;

    /// The usable part of a screen; all of it where nothing else is known.
    [[nodiscard]] virtual QRect usable(const QRect &screen) const = 0;
};

} // namespace palomet

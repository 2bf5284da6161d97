#pragma once

#include <QRect>
#include <QSize>

#include <optional>
#include <vector>

namespace palomet {

/// Where a window stands: its frame's corner, its content's size, and whether it fills the screen.
struct WindowFrame {
    QRect frame; ///< The corner is the frame's, the size the content's.
    bool isMaximized = false;

    bool operator==(const WindowFrame &) const = default;
};

/// The frame to open a window with. A saved frame that overlaps one of the present screens is moved onto the screen
/// that it overlaps most, and made small enough for it; otherwise the window stands in the middle of the first screen.
/// `screens` are their usable parts, the main screen's first.
[[nodiscard]] QRect openingFrame(const std::optional<QRect> &saved, const std::vector<QRect> &screens, QSize size,
                                 QSize minimumSize);

} // namespace palomet

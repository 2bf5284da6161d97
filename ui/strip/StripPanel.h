#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

#include <optional>
#include <vector>

namespace palomet {

/// One screen as the strip needs to know it, in points, y downwards.
struct ScreenArea {
    QRect frame;
    QRect visible; ///< What panels and docks leave.
    bool isMain = false;
};

/// Port: the strip's panel and the screens that it can stand on. Main thread only.
class StripPanel {
public:
    static constexpr QSize size{440, 40};
    /// To what is below it: the end of the screen, or a panel there.
    static constexpr int distance = 48;

    StripPanel() = default;
    StripPanel(const StripPanel &) = delete;
    StripPanel &operator=(const StripPanel &) = delete;
    virtual ~StripPanel() = default;

    [[nodiscard]] virtual bool isVisible() const = 0;
    [[nodiscard]] virtual std::vector<ScreenArea> screens() const = 0;
    /// None where the pointer cannot be known.
    [[nodiscard]] virtual std::optional<QPoint> pointer() const = 0;

    /// Shows the panel above everything else without taking the focus. Without an origin it stays where it was.
    virtual void orderFront(std::optional<QPoint> origin) = 0;
    virtual void orderOut() = 0;
};

/// The panel's top left corner: centred, 48 points above the bottom of the usable part of the pointer's screen, else of
/// the main screen. None without a screen.
[[nodiscard]] std::optional<QPoint> stripOrigin(const std::vector<ScreenArea> &screens, std::optional<QPoint> pointer);

} // namespace palomet

#include "ui/strip/StripPanel.h"

#include <algorithm>

namespace palomet {

std::optional<QPoint> stripOrigin(const std::vector<ScreenArea> &screens, std::optional<QPoint> pointer) {
    auto chosen = std::find_if(screens.begin(), screens.end(),
                               [&](const auto &screen) { return pointer && screen.frame.contains(*pointer); });
    if (chosen == screens.end())
        chosen = std::find_if(screens.begin(), screens.end(), [](const auto &screen) { return screen.isMain; });
    if (chosen == screens.end())
        return std::nullopt;
    const auto &area = chosen->visible;
    return QPoint(area.x() + (area.width() - StripPanel::size.width()) / 2,
                  area.y() + area.height() - StripPanel::distance - StripPanel::size.height());
}

} // namespace palomet

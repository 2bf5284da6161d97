#include "ui/shell/WindowFrame.h"

#include <algorithm>

namespace palomet {

namespace {

qint64 area(const QRect &rect) {
    return rect.isEmpty() ? 0 : qint64{rect.width()} * rect.height();
}

/// The frame moved onto the screen, and made no larger than the screen where the minimum size allows that.
QRect fitted(QRect frame, const QRect &screen, QSize minimumSize) {
    frame.setSize(frame.size().boundedTo(screen.size()).expandedTo(minimumSize));
    frame.moveLeft(std::max(screen.left(), std::min(frame.left(), screen.left() + screen.width() - frame.width())));
    frame.moveTop(std::max(screen.top(), std::min(frame.top(), screen.top() + screen.height() - frame.height())));
    return frame;
}

} // namespace

QRect openingFrame(const std::optional<QRect> &saved, const std::vector<QRect> &screens, QSize size,
                   QSize minimumSize) {
    if (screens.empty())
        return saved.value_or(QRect({}, size));
    if (saved && saved->isValid()) {
        const auto best = std::max_element(screens.begin(), screens.end(), [&](const auto &a, const auto &b) {
            return area(a & *saved) < area(b & *saved);
        });
        if (area(*best & *saved) > 0)
            return fitted(*saved, *best, minimumSize);
        size = saved->size();
    }
    const auto &main = screens.front();
    QRect centred({}, size.boundedTo(main.size()).expandedTo(minimumSize));
    centred.moveCenter(main.center());
    return fitted(centred, main, minimumSize);
}

} // namespace palomet

#include "ui/screens/WholeLines.h"

#include "ui/kit/Pressable.h"
#include "ui/kit/ZenBox.h"

#include <QQuickWindow>

#include <cmath>
#include <optional>

namespace palomet {

namespace {

/// From the top of what must not be cut to its end, in the view.
struct Span {
    qreal top = 0;
    qreal end = 0;
};

constexpr qreal tallestControl = 64;

/// The line of a text, the control, or whatever else says that it is to be seen as a whole, that lies across a height
/// of the view; of several, any.
std::optional<Span> across(QQuickItem *item, const QQuickItem *view, qreal y) {
    if (!item->isVisible())
        return {};
    const auto top = item->mapToItem(view, QPointF()).y();
    const auto isAcross = [y](qreal from, qreal to) { return from < y - 0.5 && to > y + 0.5; };
    const bool isControl = qobject_cast<Pressable *>(item) || qobject_cast<ZenBox *>(item);
    if ((isControl && item->height() <= tallestControl) || item->property("isWhole").toBool())
        return isAcross(top, top + item->height()) ? std::optional(Span{top, top + item->height()}) : std::nullopt;
    // A text of the kit says how high its lines are.
    const auto box = item->property("box");
    if (box.isValid() && item->property("text").isValid()) {
        const auto line = top + std::floor((y - top) / box.toReal()) * box.toReal();
        const bool isIn = y > top && y < top + item->height() && isAcross(line, line + box.toReal());
        return isIn ? std::optional(Span{line, line + box.toReal()}) : std::nullopt;
    }
    for (auto *child : item->childItems()) {
        if (const auto found = across(child, view, y))
            return found;
    }
    return {};
}

} // namespace

void WholeLines::itemChange(ItemChange change, const ItemChangeData &value) {
    QQuickItem::itemChange(change, value);
    if (change != ItemSceneChange)
        return;
    disconnect(m_frames);
    // Everything is laid out then, and nothing drawn yet.
    if (value.window)
        m_frames = connect(value.window, &QQuickWindow::afterAnimating, this, &WholeLines::measure);
}

void WholeLines::measure() {
    auto *content = m_view ? m_view->property("contentItem").value<QQuickItem *>() : nullptr;
    if (!content)
        return;
    // What is hidden for one line may cut another beside it.
    constexpr int mostLooks = 8;
    auto top = m_covered;
    for (int look = 0; look < mostLooks; ++look) {
        const auto cut = across(content, m_view, top);
        if (!cut)
            break;
        top = cut->end;
    }
    auto bottom = m_view->height();
    for (int look = 0; look < mostLooks; ++look) {
        const auto cut = across(content, m_view, bottom);
        if (!cut)
            break;
        bottom = cut->top;
    }
    const auto above = top - m_covered;
    const auto below = m_view->height() - bottom;
    if (above == m_above && below == m_below)
        return;
    m_above = above;
    m_below = below;
    Q_EMIT changed();
}

} // namespace palomet

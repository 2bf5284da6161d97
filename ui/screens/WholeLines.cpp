#include "ui/screens/WholeLines.h"

#include "ui/kit/Pressable.h"
#include "ui/kit/ZenBox.h"

#include <QQuickWindow>

#include <cmath>
#include <optional>

namespace palomet {

namespace {

/// An item or a line of text that must not be cut, in the view's points.
struct Span {
    qreal top = 0;
    qreal end = 0;
};

constexpr qreal tallestControl = 64;

/// A line of text, a control or an item with `isWhole` below `item` that lies across a height of the view; any of
/// several. `top` is the item's top in the view.
std::optional<Span> across(const QQuickItem *item, qreal top, qreal y) {
    const auto end = top + item->height();
    const auto isAcross = [y](qreal from, qreal to) { return from < y - 0.5 && to > y + 0.5; };
    const bool isControl = qobject_cast<const Pressable *>(item) || qobject_cast<const ZenBox *>(item);
    if ((isControl && item->height() <= tallestControl) || item->property("isWhole").toBool())
        return isAcross(top, end) ? std::optional(Span{top, end}) : std::nullopt;
    // The kit's texts have the height of their lines as `box`.
    const auto box = item->property("box");
    if (box.isValid() && item->property("text").isValid()) {
        const auto line = top + std::floor((y - top) / box.toReal()) * box.toReal();
        const bool isIn = y > top && y < end && isAcross(line, line + box.toReal());
        return isIn ? std::optional(Span{line, line + box.toReal()}) : std::nullopt;
    }
    for (const auto *child : item->childItems()) {
        const auto childTop = top + child->y();
        // Most children lie elsewhere. One without a height may have children that have one.
        const bool isElsewhere = child->height() > 0 && (childTop > y || childTop + child->height() < y);
        if (isElsewhere || !child->isVisible())
            continue;
        if (const auto found = across(child, childTop, y))
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
    // At this signal everything is laid out and nothing drawn yet.
    if (value.window)
        m_frames = connect(value.window, &QQuickWindow::afterAnimating, this, &WholeLines::measure);
}

void WholeLines::measure() {
    auto *content = m_view ? m_view->property("contentItem").value<QQuickItem *>() : nullptr;
    if (!content)
        return;
    // Hiding one line may cut another one beside it.
    constexpr int mostLooks = 8;
    auto top = m_covered;
    for (int look = 0; look < mostLooks; ++look) {
        const auto cut = across(content, content->y(), top);
        if (!cut)
            break;
        top = cut->end;
    }
    auto bottom = m_view->height();
    for (int look = 0; look < mostLooks; ++look) {
        const auto cut = across(content, content->y(), bottom);
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

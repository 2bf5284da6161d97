#include "ui/kit/ZenBox.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace palomet {

ZenBox::ZenBox(QQuickItem *parent)
    : QQuickPaintedItem(parent) {
    setAntialiasing(true);
}

template <typename Value>
void ZenBox::assign(Value &member, Value value) {
    if (member == value)
        return;
    member = value;
    Q_EMIT changed();
    update();
}

void ZenBox::setColor(QColor color) {
    assign(m_color, color);
}
void ZenBox::setEdge(QColor edge) {
    assign(m_edge, edge);
}
void ZenBox::setEdgeWidth(qreal width) {
    assign(m_edgeWidth, width);
}
void ZenBox::setRadius(qreal radius) {
    assign(m_radius, radius);
}
void ZenBox::setLine(Line line) {
    assign(m_line, line);
}

void ZenBox::paint(QPainter *painter) {
    const QRectF outer(0, 0, width(), height());
    const qreal radius = std::min({m_radius, width() / 2, height() / 2});
    painter->setPen(Qt::NoPen);
    if (m_edgeWidth <= 0 || m_edge.alpha() == 0) {
        painter->setBrush(m_color);
        painter->drawRoundedRect(outer, radius, radius);
        return;
    }
    const qreal scale = painter->transform().m11();
    const qreal line =
        m_line == Line::Exact ? m_edgeWidth : std::max(1.0, std::floor(m_edgeWidth * scale + 0.01)) / scale;
    const qreal innerRadius = std::max(0.0, radius - line);
    QPainterPath inside;
    inside.addRoundedRect(outer.adjusted(line, line, -line, -line), innerRadius, innerRadius);
    QPainterPath ring;
    ring.addRoundedRect(outer, radius, radius);
    // Two windings make the inside a hole, without the cost of subtracting paths.
    ring.addPath(inside);
    // The fill ends under the middle of the edge, so that no background shines through between them.
    const qreal middle = line / 2;
    painter->setBrush(m_color);
    painter->drawRoundedRect(outer.adjusted(middle, middle, -middle, -middle), radius - middle, radius - middle);
    painter->setBrush(m_edge);
    painter->drawPath(ring);
}

} // namespace palomet

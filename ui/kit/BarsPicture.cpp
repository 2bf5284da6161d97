#include "ui/kit/BarsPicture.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace palomet {

namespace {
constexpr qreal gap = 2;
constexpr qreal corner = 1;
} // namespace

BarsPicture::BarsPicture(QQuickItem *parent)
    : QQuickPaintedItem(parent) {
    setAntialiasing(true);
    connect(this, &BarsPicture::lookChanged, this, &BarsPicture::resize);
}

qreal BarsPicture::gain(qreal level) {
    // The comparison turns NaN into silence.
    return level > 0 ? std::min(level * 2.2, 1.0) : 0.0;
}

void BarsPicture::setLevel(qreal level) {
    if (m_level == level)
        return;
    const auto before = gain(m_level);
    m_level = level;
    Q_EMIT levelChanged();
    if (gain(level) != before)
        update();
}

QList<qreal> BarsPicture::heights() const {
    QList<qreal> heights;
    heights.reserve(m_shape.size());
    for (const qreal share : m_shape)
        heights.append(m_maxHeight * gain(m_level) * share + m_floor);
    return heights;
}

void BarsPicture::resize() {
    const auto count = static_cast<qreal>(m_shape.size());
    setImplicitSize(std::max(0.0, count * (m_barWidth + gap) - gap), m_maxHeight + m_floor);
    update();
}

void BarsPicture::paint(QPainter *painter) {
    painter->setPen(Qt::NoPen);
    painter->setBrush(m_color);
    qreal x = 0;
    for (const qreal height : heights()) {
        painter->drawRoundedRect(QRectF(x, (m_maxHeight + m_floor - height) / 2, m_barWidth, height), corner, corner);
        x += m_barWidth + gap;
    }
}

} // namespace palomet

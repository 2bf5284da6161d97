#pragma once

#include <QColor>
#include <QList>
#include <QQuickPaintedItem>

namespace palomet {

/// The bars of a level meter, painted as one small picture, so that a level event costs next to nothing. `Bars` and
/// `MicMeter` smooth the level.
class BarsPicture : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    /// 0 is silence, 1 full scale. Other values are clipped; NaN is silence.
    Q_PROPERTY(qreal level READ level WRITE setLevel NOTIFY levelChanged FINAL)
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY lookChanged FINAL)
    /// One entry a bar: the share of `maxHeight` that the bar may grow by.
    Q_PROPERTY(QList<qreal> shape MEMBER m_shape NOTIFY lookChanged FINAL)
    Q_PROPERTY(qreal maxHeight MEMBER m_maxHeight NOTIFY lookChanged FINAL)
    /// The height of a bar at silence.
    Q_PROPERTY(qreal floor MEMBER m_floor NOTIFY lookChanged FINAL)
    Q_PROPERTY(qreal barWidth MEMBER m_barWidth NOTIFY lookChanged FINAL)

public:
    explicit BarsPicture(QQuickItem *parent = nullptr);

    [[nodiscard]] qreal level() const { return m_level; }
    void setLevel(qreal level);

    /// How far a level drives the bars, from 0 to 1. Ordinary speech, about 0.45 of full scale, fills them.
    [[nodiscard]] static qreal gain(qreal level);
    /// The heights of the bars as they stand, in points.
    [[nodiscard]] QList<qreal> heights() const;

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void levelChanged();
    void lookChanged();

private:
    void resize();

    qreal m_level = 0;
    QColor m_color = Qt::black;
    QList<qreal> m_shape;
    qreal m_maxHeight = 12;
    qreal m_floor = 4;
    qreal m_barWidth = 2;
};

} // namespace palomet

#pragma once

#include <QColor>
#include <QQuickPaintedItem>

namespace palomet {

/// A filled shape with round corners and an edge inside it: the ground of buttons, fields, caps, switches and marks.
/// Drawn on the screen's own pixels, so that lines and corners are even at every scale.
class ZenBox : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY changed FINAL)
    Q_PROPERTY(QColor edge READ edge WRITE setEdge NOTIFY changed FINAL)
    Q_PROPERTY(qreal edgeWidth READ edgeWidth WRITE setEdgeWidth NOTIFY changed FINAL)
    Q_PROPERTY(qreal radius READ radius WRITE setRadius NOTIFY changed FINAL)
    Q_PROPERTY(Line line READ line WRITE setLine NOTIFY changed FINAL)

public:
    /// Whole: the edge is rounded to whole pixels, for straight lines. Exact: it is as wide as it says, for rings.
    enum class Line { Whole, Exact };
    Q_ENUM(Line)

    explicit ZenBox(QQuickItem *parent = nullptr);

    [[nodiscard]] QColor color() const { return m_color; }
    void setColor(QColor color);
    [[nodiscard]] QColor edge() const { return m_edge; }
    void setEdge(QColor edge);
    [[nodiscard]] qreal edgeWidth() const { return m_edgeWidth; }
    void setEdgeWidth(qreal width);
    [[nodiscard]] qreal radius() const { return m_radius; }
    /// More than half of the shorter side means half of it.
    void setRadius(qreal radius);
    [[nodiscard]] Line line() const { return m_line; }
    void setLine(Line line);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void changed();

private:
    template <typename Value>
    void assign(Value &member, Value value);

    QColor m_color = Qt::transparent;
    QColor m_edge = Qt::transparent;
    qreal m_edgeWidth = 0;
    qreal m_radius = 0;
    Line m_line = Line::Whole;
};

} // namespace palomet

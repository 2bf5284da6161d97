#pragma once

#include <QQuickItem>

namespace palomet {

/// What everything that is pressed has in common, without a look: the pointer over it, the press, the click by mouse,
/// touch, Space or Return, and whether the keyboard brought the focus here. The three can also be set, to show a state.
class Pressable : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool isPointed READ isPointed WRITE setPointed NOTIFY isPointedChanged FINAL)
    Q_PROPERTY(bool isHeld READ isHeld WRITE setHeld NOTIFY isHeldChanged FINAL)
    /// True while it has the focus and the keyboard brought it, which is when a ring is drawn.
    Q_PROPERTY(bool isReached READ isReached WRITE setReached NOTIFY isReachedChanged FINAL)

public:
    explicit Pressable(QQuickItem *parent = nullptr);

    [[nodiscard]] bool isPointed() const { return m_isPointed; }
    void setPointed(bool isPointed);
    [[nodiscard]] bool isHeld() const { return m_isHeld; }
    void setHeld(bool isHeld);
    [[nodiscard]] bool isReached() const { return m_isReached; }
    void setReached(bool isReached);

Q_SIGNALS:
    void clicked();
    /// The mouse's button went down on it. Not by touch, which may be the beginning of a scroll.
    void pressed();
    /// The pointer moved, or came up, anywhere, after the button had gone down here; where, in this item's points. A
    /// click comes first.
    void dragged(QPointF position);
    void released(QPointF position);
    /// The pointer moved over it, rather than it under a pointer at rest.
    void pointerMoved();
    void isPointedChanged();
    void isHeldChanged();
    void isReachedChanged();

protected:
    void hoverEnterEvent(QHoverEvent *event) override;
    void hoverMoveEvent(QHoverEvent *event) override;
    void hoverLeaveEvent(QHoverEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseUngrabEvent() override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void itemChange(ItemChange change, const ItemChangeData &value) override;

private:
    bool m_isPointed = false;
    bool m_isHeld = false;
    bool m_isReached = false;
};

} // namespace palomet

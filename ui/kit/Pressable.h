#pragma once

#include <QQuickItem>

namespace palomet {

/// The base of all controls that are pressed, without a look: the pointer over it, the press, the click by mouse,
/// touch, Space or Return, and whether the keyboard brought the focus here. These three states can also be set, to show
/// them.
class Pressable : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool isPointed READ isPointed WRITE setPointed NOTIFY isPointedChanged FINAL)
    Q_PROPERTY(bool isHeld READ isHeld WRITE setHeld NOTIFY isHeldChanged FINAL)
    /// True while it has the focus and the keyboard brought it; a ring is drawn then.
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
    /// The mouse's button went down on it. A touch does not count, because it may begin a scroll.
    void pressed();
    /// After the button went down here, the pointer moved or the button came up, anywhere, at a position in this item's
    /// points. `clicked` comes before `released`.
    void dragged(QPointF position);
    void released(QPointF position);
    /// The pointer moved over the item; the item did not slide under a pointer at rest.
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

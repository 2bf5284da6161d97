#include "ui/kit/Pressable.h"

#include <QKeyEvent>

namespace palomet {

namespace {

bool isPlain(const QKeyEvent &event) {
    return (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

bool broughtByKeyboard(Qt::FocusReason reason) {
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
}

/// An item that slides under a pointer at rest is entered, too.
bool isMove(const QHoverEvent &event) {
    return event.oldPosF() != event.position();
}

} // namespace

Pressable::Pressable(QQuickItem *parent)
    : QQuickItem(parent) {
    setAcceptedMouseButtons(Qt::LeftButton);
    setAcceptHoverEvents(true);
    setActiveFocusOnTab(true);
}

void Pressable::setPointed(bool isPointed) {
    if (m_isPointed == isPointed)
        return;
    m_isPointed = isPointed;
    Q_EMIT isPointedChanged();
}

void Pressable::setHeld(bool isHeld) {
    if (m_isHeld == isHeld)
        return;
    m_isHeld = isHeld;
    Q_EMIT isHeldChanged();
}

void Pressable::setReached(bool isReached) {
    if (m_isReached == isReached)
        return;
    m_isReached = isReached;
    Q_EMIT isReachedChanged();
}

void Pressable::hoverEnterEvent(QHoverEvent *event) {
    setPointed(true);
    event->accept();
    if (isMove(*event))
        Q_EMIT pointerMoved();
}

void Pressable::hoverMoveEvent(QHoverEvent *event) {
    if (isMove(*event))
        Q_EMIT pointerMoved();
}

void Pressable::hoverLeaveEvent(QHoverEvent *event) {
    setPointed(false);
    event->accept();
}

void Pressable::mousePressEvent(QMouseEvent *event) {
    if (activeFocusOnTab())
        forceActiveFocus(Qt::MouseFocusReason);
    setHeld(true);
    event->accept();
    if (event->deviceType() != QInputDevice::DeviceType::TouchScreen)
        Q_EMIT pressed();
}

void Pressable::mouseMoveEvent(QMouseEvent *event) {
    setHeld(contains(event->position()));
    Q_EMIT dragged(event->position());
}

void Pressable::mouseReleaseEvent(QMouseEvent *event) {
    const bool isClick = m_isHeld && contains(event->position());
    setHeld(false);
    const auto position = event->position();
    if (isClick)
        Q_EMIT clicked();
    Q_EMIT released(position);
}

void Pressable::mouseUngrabEvent() {
    setHeld(false);
}

void Pressable::keyPressEvent(QKeyEvent *event) {
    event->setAccepted(isPlain(*event));
    if (!event->isAccepted())
        return;
    switch (event->key()) {
    case Qt::Key_Space:
        if (!event->isAutoRepeat())
            setHeld(true);
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Select:
        if (!event->isAutoRepeat())
            Q_EMIT clicked();
        return;
    default:
        event->ignore();
    }
}

void Pressable::keyReleaseEvent(QKeyEvent *event) {
    event->setAccepted(event->key() == Qt::Key_Space && isPlain(*event));
    if (!event->isAccepted() || event->isAutoRepeat() || !m_isHeld)
        return;
    setHeld(false);
    Q_EMIT clicked();
}

void Pressable::focusInEvent(QFocusEvent *event) {
    QQuickItem::focusInEvent(event);
    // Coming back to the window changes nothing.
    if (event->reason() != Qt::ActiveWindowFocusReason)
        setReached(broughtByKeyboard(event->reason()));
}

void Pressable::focusOutEvent(QFocusEvent *event) {
    QQuickItem::focusOutEvent(event);
    setHeld(false);
    if (event->reason() != Qt::ActiveWindowFocusReason)
        setReached(false);
}

void Pressable::itemChange(ItemChange change, const ItemChangeData &value) {
    QQuickItem::itemChange(change, value);
    if ((change == ItemEnabledHasChanged && !isEnabled()) || (change == ItemVisibleHasChanged && !isVisible())) {
        setHeld(false);
        setPointed(false);
    }
}

} // namespace palomet

#include "ui/kit/Exposure.h"

#include <QEvent>

namespace palomet {

Exposure::Exposure(QObject *item)
    : QObject(item)
    , m_item(qobject_cast<QQuickItem *>(item)) {
    if (!m_item)
        return;
    connect(m_item, &QQuickItem::visibleChanged, this, &Exposure::update);
    connect(m_item, &QQuickItem::windowChanged, this, &Exposure::follow);
    follow(m_item->window());
}

void Exposure::follow(QQuickWindow *window) {
    if (m_window)
        m_window->removeEventFilter(this);
    m_window = window;
    if (m_window)
        m_window->installEventFilter(this);
    update();
}

bool Exposure::eventFilter(QObject *object, QEvent *event) {
    if (event->type() == QEvent::Expose || event->type() == QEvent::Hide)
        update();
    return QObject::eventFilter(object, event);
}

void Exposure::update() {
    const bool isShown = m_item->isVisible() && m_window && m_window->isVisible() && m_window->isExposed();
    if (m_isShown == isShown)
        return;
    m_isShown = isShown;
    Q_EMIT isShownChanged();
}

} // namespace palomet

#include "ui/kit/ReadingOrder.h"

#include <algorithm>

namespace palomet {

ReadingOrder::ReadingOrder(QObject *parent)
    : QObject(parent) {
    QAccessible::installActivationObserver(this);
}

ReadingOrder::~ReadingOrder() {
    QAccessible::removeActivationObserver(this);
}

void ReadingOrder::setOf(QQuickItem *item) {
    if (m_of == item)
        return;
    if (m_of)
        m_of->disconnect(this);
    m_of = item;
    if (m_of)
        connect(m_of, &QQuickItem::childrenChanged, this, &ReadingOrder::watchChildren);
    watchChildren();
    Q_EMIT ofChanged();
}

void ReadingOrder::accessibilityActiveChanged(bool /*isActive*/) {
    sortLater();
}

void ReadingOrder::watchChildren() {
    if (!m_of)
        return;
    for (const auto *child : m_of->childItems())
        connect(child, &QQuickItem::yChanged, this, &ReadingOrder::sortLater, Qt::UniqueConnection);
    sortLater();
}

void ReadingOrder::sortLater() {
    if (m_isToBeSorted || !QAccessible::isActive())
        return;
    m_isToBeSorted = true;
    QMetaObject::invokeMethod(this, &ReadingOrder::sort, Qt::QueuedConnection);
}

void ReadingOrder::sort() {
    m_isToBeSorted = false;
    if (!m_of)
        return;
    const auto stacked = m_of->childItems();
    auto read = stacked;
    std::stable_sort(read.begin(), read.end(),
                     [](const auto *one, const auto *other) { return one->y() < other->y(); });
    if (read == stacked)
        return;
    for (qsizetype at = 1; at < read.size(); ++at)
        read[at]->stackAfter(read[at - 1]);
}

} // namespace palomet

#pragma once

#include <QAccessible>
#include <QPointer>
#include <QQuickItem>

namespace palomet {

/// Keeps the children of an item in reading order, from the top down. A screen reader follows the stacking order, and a
/// view that makes its rows when they are needed, and reuses them, stacks them by chance. Without a screen reader it
/// does nothing. The children must not overlap, because the stacking order is also the drawing order. Main thread only.
class ReadingOrder : public QObject, private QAccessible::ActivationObserver {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickItem *of READ of WRITE setOf NOTIFY ofChanged FINAL REQUIRED)

public:
    explicit ReadingOrder(QObject *parent = nullptr);
    ~ReadingOrder() override;

    [[nodiscard]] QQuickItem *of() const { return m_of; }
    void setOf(QQuickItem *item);

Q_SIGNALS:
    void ofChanged();

private:
    void accessibilityActiveChanged(bool isActive) override;
    void watchChildren();
    /// Sorts a little later, because rows come and go several at a time.
    void sortLater();
    void sort();

    QPointer<QQuickItem> m_of;
    bool m_isToBeSorted = false;
};

} // namespace palomet

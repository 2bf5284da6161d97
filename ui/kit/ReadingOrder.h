#pragma once

#include <QAccessible>
#include <QPointer>
#include <QQuickItem>

namespace palomet {

/// Keeps the children of an item in the order in which they are read, from the top down. A screen reader goes through
/// them as they are stacked, and a view that makes its rows when they are needed, and uses them again, stacks them by
/// chance. Nothing is done without a screen reader. The children must not overlap, for the stack is also the order in
/// which they are drawn. Main thread only.
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
    /// A little later, for rows come and go several at a time.
    void sortLater();
    void sort();

    QPointer<QQuickItem> m_of;
    bool m_isToBeSorted = false;
};

} // namespace palomet

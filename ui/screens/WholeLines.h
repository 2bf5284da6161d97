#pragma once

#include <QPointer>
#include <QQuickItem>

namespace palomet {

/// Measures, before each frame, how much of a view has to be hidden at its upper and its lower edge so that these cut
/// no line of text and no control. Main thread only.
class WholeLines : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    /// A view whose content lies in its `contentItem`.
    Q_PROPERTY(QQuickItem *view MEMBER m_view REQUIRED)
    /// The height at the view's top that something else covers.
    Q_PROPERTY(qreal covered MEMBER m_covered)
    Q_PROPERTY(qreal above READ above NOTIFY changed FINAL)
    Q_PROPERTY(qreal below READ below NOTIFY changed FINAL)

public:
    using QQuickItem::QQuickItem;

    [[nodiscard]] qreal above() const { return m_above; }
    [[nodiscard]] qreal below() const { return m_below; }

Q_SIGNALS:
    void changed();

protected:
    void itemChange(ItemChange change, const ItemChangeData &value) override;

private:
    void measure();

    QPointer<QQuickItem> m_view;
    QMetaObject::Connection m_frames;
    qreal m_covered = 0;
    qreal m_above = 0;
    qreal m_below = 0;
};

} // namespace palomet

#pragma once

#include <QPointer>
#include <QQuickItem>

namespace palomet {

/// How much of a view's content has to be hidden at its upper and its lower edge so that no line of text, and no
/// control, is cut there. It is known anew with every frame that is drawn. Main thread only.
class WholeLines : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    /// A view whose content lies in its `contentItem`.
    Q_PROPERTY(QQuickItem *view MEMBER m_view REQUIRED)
    /// How much of its top something else stands over.
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

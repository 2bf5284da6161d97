#pragma once

#include <QPointer>
#include <QQuickItem>
#include <QQuickWindow>
#include <QtQml/qqml.h>

namespace palomet {

/// Attached to an item: says whether the item and its window are on the screen now. Everything that moves or ticks asks
/// here first, so that nothing runs in hidden items.
class Exposure : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Exposure is attached")
    QML_ATTACHED(palomet::Exposure)
    Q_PROPERTY(bool isShown READ isShown NOTIFY isShownChanged FINAL)

public:
    explicit Exposure(QObject *item);

    static Exposure *qmlAttachedProperties(QObject *item) { return new Exposure(item); }

    [[nodiscard]] bool isShown() const { return m_isShown; }

    bool eventFilter(QObject *object, QEvent *event) override;

Q_SIGNALS:
    void isShownChanged();

private:
    void follow(QQuickWindow *window);
    void update();

    QQuickItem *m_item;
    QPointer<QQuickWindow> m_window;
    bool m_isShown = false;
};

} // namespace palomet

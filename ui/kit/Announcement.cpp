#include "ui/kit/Announcement.h"

#include <QAccessible>

namespace palomet {

Announcement::Announcement(QQuickItem *parent)
    : QQuickItem(parent) {
    // It shows from its first words on.
    setVisible(false);
}

void Announcement::setText(const QString &text) {
    if (m_text == text)
        return;
    m_text = text;
    // First, because the alert says the accessible name.
    Q_EMIT textChanged();
    // The words that it is made with are no change.
    if (!m_text.isEmpty() && isComponentComplete())
        raise();
}

void Announcement::raise() {
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
    // The toolkit does not pass alerts on to the accessibility bus. A screen reader there reads out a notification that
    // begins to show.
    if (!isVisible()) {
        setVisible(true);
        return;
    }
    QAccessibleEvent show(this, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&show);
}

} // namespace palomet

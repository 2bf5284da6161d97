#include "ui/kit/Announcement.h"

#include <QAccessible>

namespace palomet {

Announcement::Announcement(QQuickItem *parent)
    : QQuickItem(parent) {
    // It begins to show with its first words.
    setVisible(false);
}

void Announcement::setText(const QString &text) {
    if (m_text == text)
        return;
    m_text = text;
    // The name first: it is what the alert says.
    Q_EMIT textChanged();
    // What it says when it is made is no change.
    if (!m_text.isEmpty() && isComponentComplete())
        raise();
}

void Announcement::raise() {
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
    // The toolkit does not pass an alert on to the accessibility bus. What is read out there is a notification that
    // begins to show.
    if (!isVisible()) {
        setVisible(true);
        return;
    }
    QAccessibleEvent show(this, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&show);
}

} // namespace palomet

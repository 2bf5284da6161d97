#include "ui/kit/Announcement.h"

#include <QAccessible>

namespace palomet {

void Announcement::setText(const QString &text) {
    if (m_text == text)
        return;
    m_text = text;
    // The name first: it is what the alert says.
    Q_EMIT textChanged();
    // What it says when it is made is no change.
    if (m_text.isEmpty() || !isComponentComplete())
        return;
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

} // namespace palomet

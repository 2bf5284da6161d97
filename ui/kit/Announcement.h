#pragma once

#include <QQuickItem>

namespace palomet {

/// Words for a screen reader: whenever they become others, and are any, an alert is raised, so that they are read out
/// wherever the user is. It shows nothing; its accessible name is the words. Main thread only.
class Announcement : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged FINAL)

public:
    using QQuickItem::QQuickItem;

    [[nodiscard]] QString text() const { return m_text; }
    void setText(const QString &text);

Q_SIGNALS:
    void textChanged();

private:
    QString m_text;
};

} // namespace palomet

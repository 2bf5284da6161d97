#pragma once

#include <QQuickItem>

namespace palomet {

/// Words for a screen reader: whenever they become others, and are any, an alert is raised, so that they are read out
/// wherever the user is. It shows nothing; its accessible role is a notification, its accessible name the words. Main
/// thread only.
class Announcement : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged FINAL)

public:
    explicit Announcement(QQuickItem *parent = nullptr);

    [[nodiscard]] QString text() const { return m_text; }
    void setText(const QString &text);

    /// Has its accessible name read out, whether or not the words became others.
    void raise();

Q_SIGNALS:
    void textChanged();

private:
    QString m_text;
};

} // namespace palomet

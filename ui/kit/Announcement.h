#pragma once

#include <QQuickItem>

namespace palomet {

/// Words for a screen reader. When they change and are not empty, an alert has them read out, wherever the user is. The
/// item itself shows nothing; its accessible role is a notification, its accessible name the words. Main thread only.
class Announcement : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged FINAL)

public:
    explicit Announcement(QQuickItem *parent = nullptr);

    [[nodiscard]] QString text() const { return m_text; }
    void setText(const QString &text);

    /// Has its accessible name read out, also when the words have not changed.
    void raise();

Q_SIGNALS:
    void textChanged();

private:
    QString m_text;
};

} // namespace palomet

#pragma once

#include "app/Notifier.h"

#include <QDBusConnection>
#include <QObject>

#include <map>

namespace palomet {

/// Notices by `org.freedesktop.Notifications`, which a desktop's panel or a program of its own serves. Where nobody
/// does they are lost without a word.
class DesktopNotifier final : public QObject, public Notifier {
    Q_OBJECT

public:
    /// `desktopFile` is the name of the program's desktop file without its ending, and of its icon.
    DesktopNotifier(const QDBusConnection &bus, QString desktopFile);

    void show(quint32 id, const Notice &notice) override;
    void withdraw(quint32 id) override;

private Q_SLOTS:
    void chosen(uint number, const QString &action);
    void tokenGiven(uint number, const QString &token);
    void closed(uint number, uint reason);

private:
    /// A notice that was handed over.
    struct Shown {
        uint number = 0; ///< The desktop's, once it has told it.
        QString activation;
        bool isWithdrawn = false;
        int question = 0; ///< Which of the calls is the last one.
    };

    void told(quint32 id, int question, uint number);
    void close(uint number);
    /// Whose notice it is; the end where it is not of ours.
    [[nodiscard]] std::map<quint32, Shown>::iterator find(uint number);

    QDBusConnection m_bus;
    const QString m_desktopFile;
    std::map<quint32, Shown> m_shown;
    int m_questions = 0;
};

} // namespace palomet

#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QMap>
#include <QStringList>
#include <QVariantMap>

#include <optional>

namespace palomet::test {

/// The desktop's settings portal and permission store on a bus of the test's own, as far as this program asks them.
class FakeDesktop final : public QDBusVirtualObject {
    Q_OBJECT

public:
    enum class Manner { Answer, Refuse, Nonsense, KeepSilent };

    explicit FakeDesktop(const QDBusConnection &bus);
    ~FakeDesktop() override;

    void appear();
    void vanish();

    Manner manner = Manner::Answer;
    QMap<QString, QVariantMap> settings;
    /// By application, for the microphone; nothing kept: not found.
    std::optional<QMap<QString, QStringList>> permissions;
    QStringList calls; ///< Members called, in order.

    void changeSetting(const QString &group, const QString &key, const QVariant &value);
    void changePermissions(const QMap<QString, QStringList> &changed,
                           const QString &device = QStringLiteral("microphone"));
    void deletePermissions();
    /// Answers the calls that were kept waiting.
    void answerNow();

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    [[nodiscard]] QDBusMessage answer(const QDBusMessage &call) const;

    QDBusConnection m_bus;
    QList<QDBusMessage> m_waiting;
};

} // namespace palomet::test

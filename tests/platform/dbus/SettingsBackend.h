#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QMap>
#include <QVariantMap>

namespace palomet::test {

/// One of those who stand behind the desktop's portal and know settings; the test says which.
class SettingsBackend final : public QDBusVirtualObject {
    Q_OBJECT

public:
    /// `bus` is this object's own connection.
    SettingsBackend(const QDBusConnection &bus, const QString &name);
    ~SettingsBackend() override;

    /// Its name on the bus.
    [[nodiscard]] const QString &name() const { return m_name; }

    QMap<QString, QVariantMap> settings;

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    QDBusConnection m_bus;
    const QString m_name;
};

} // namespace palomet::test

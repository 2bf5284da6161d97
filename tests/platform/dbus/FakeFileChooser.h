#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QVariantMap>

namespace palomet::test {

/// A portal that the test plays: it owns the portal's name on the private bus, and has a file chooser of that version.
class FakeFileChooser final : public QDBusVirtualObject {
    Q_OBJECT

public:
    explicit FakeFileChooser(const QDBusConnection &bus);
    ~FakeFileChooser() override;

    /// Takes the portal's name, or gives it back.
    void appear();
    void vanish();

    uint version = 3;
    bool isRefusing = false; ///< OpenFile is answered with an error.
    int opened = 0;          ///< How often OpenFile was called.
    int closed = 0;          ///< How often a request was closed.
    QString parentWindow;    ///< What OpenFile was given last.
    QString title;
    QVariantMap options;

    /// Answers the last request.
    void respond(uint code, const QStringList &uris = {});

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    QDBusConnection m_bus;
    QString m_request;
};

} // namespace palomet::test

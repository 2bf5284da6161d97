#pragma once

#include <QDBusAbstractAdaptor>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

#include <vector>

namespace palomet::test {

/// One entry of a tray item's menu, as a host gets it.
struct TrayMenuEntry {
    int id = 0;
    QVariantMap properties;
    std::vector<TrayMenuEntry> children;

    /// The title as a host shows it: an underscore marks a mnemonic, two are one.
    [[nodiscard]] QString title() const;
    [[nodiscard]] bool isSeparator() const;
    /// A missing property is true.
    [[nodiscard]] bool isEnabled() const;
    /// "Control+Alt+Space"; empty without one.
    [[nodiscard]] QString shortcut() const;
};

/// A desktop's tray on a bus of the test's own: watcher and host in one. What it is asked it answers from the event
/// loop; what it asks waits for the answer, so the program with the item must be another.
class TrayHostDouble final : public QObject {
    Q_OBJECT

public:
    enum class Host { Absent, Present };

    /// Nothing of it is on the bus before `appear`.
    explicit TrayHostDouble(const QDBusConnection &bus);
    ~TrayHostDouble() override;

    /// The watcher takes its name, or gives it back.
    void appear(Host host = Host::Present);
    void vanish();

    /// A host comes or goes at the watcher that is there.
    void setHost(Host host);
    [[nodiscard]] bool hasHost() const { return m_host == Host::Present; }

    /// The names of the programs that have registered an item, in their order, since the watcher appeared.
    [[nodiscard]] const QStringList &items() const { return m_items; }

    /// A property of the last item; invalid when there is none.
    [[nodiscard]] QVariant property(const QString &name) const;

    /// The entries of its menu; none when it does not answer.
    [[nodiscard]] std::vector<TrayMenuEntry> menu() const;

    /// The last item is clicked.
    void activate();
    /// The menu is about to be opened.
    void open();
    /// The entry with this title is clicked; false when there is none.
    bool click(const QString &title);

    // Of the watcher.
    void registerItem(const QString &service);

private:
    QVariantList callMenu(const QString &method, const QVariantList &arguments) const;

    QDBusConnection m_bus;
    Host m_host = Host::Absent;
    QStringList m_items;
};

/// The double's face on the bus, as the watcher shows it.
class TrayWatcherAdaptor final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ isHostRegistered)
    Q_PROPERTY(QStringList RegisteredStatusNotifierItems READ items)
    Q_PROPERTY(int ProtocolVersion READ protocolVersion)

public:
    explicit TrayWatcherAdaptor(TrayHostDouble &host)
        : QDBusAbstractAdaptor(&host)
        , m_double(host) {}

    [[nodiscard]] bool isHostRegistered() const { return m_double.hasHost(); }
    [[nodiscard]] QStringList items() const { return m_double.items(); }
    [[nodiscard]] int protocolVersion() const { return 0; }

public Q_SLOTS:
    void RegisterStatusNotifierItem(const QString &service) { m_double.registerItem(service); }

Q_SIGNALS:
    void StatusNotifierHostRegistered();
    void StatusNotifierHostUnregistered();
    void StatusNotifierItemRegistered(const QString &service);

private:
    TrayHostDouble &m_double;
};

} // namespace palomet::test

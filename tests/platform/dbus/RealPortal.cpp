#include "tests/platform/dbus/RealPortal.h"

#include "tests/support/Eventually.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QFile>

#include <sys/prctl.h>

#include <csignal>

namespace palomet::test {

namespace {

const auto portalProgram = QStringLiteral("/usr/libexec/xdg-desktop-portal");
const auto portalService = QStringLiteral("org.freedesktop.portal.Desktop");
const auto service = QStringLiteral("org.freedesktop.impl.portal.desktop.rehearsed");
const auto path = QStringLiteral("/org/freedesktop/portal/desktop");
const auto interface = QStringLiteral("org.freedesktop.impl.portal.GlobalShortcuts");

QString pathIn(const QVariant &argument) {
    return argument.value<QDBusObjectPath>().path();
}

} // namespace

bool RealPortal::isInstalled() {
    return QFile::exists(portalProgram);
}

RealPortal::RealPortal(const QDBusConnection &bus, const QString &address)
    : m_bus(bus)
    , m_address(address) {
    qDBusRegisterMetaType<PortalShortcut>();
    qDBusRegisterMetaType<QList<PortalShortcut>>();
    m_bus.registerVirtualObject(path, this, QDBusConnection::SubPath);
    m_bus.registerService(service);
}

RealPortal::~RealPortal() {
    kill();
    m_bus.unregisterObject(path, QDBusConnection::UnregisterTree);
}

bool RealPortal::start(Desktop desktop) {
    QFile description(m_folder.filePath(QStringLiteral("rehearsed.portal")));
    if (!description.open(QFile::WriteOnly))
        return false;
    description.write("[portal]\nDBusName=" + service.toUtf8() + "\nUseIn=rehearsed\nInterfaces=");
    description.write(desktop == Desktop::HoldsKeys ? interface.toUtf8() : "org.freedesktop.impl.portal.Email");
    description.write(";\n");
    description.close();
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), m_address);
    environment.insert(QStringLiteral("XDG_DESKTOP_PORTAL_DIR"), m_folder.path());
    environment.insert(QStringLiteral("XDG_CURRENT_DESKTOP"), QStringLiteral("rehearsed"));
    for (const auto *home : {"HOME", "XDG_RUNTIME_DIR", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"})
        environment.insert(QString::fromLatin1(home), m_folder.path());
    m_portal.setProcessEnvironment(environment);
    m_portal.setProcessChannelMode(QProcess::MergedChannels);
    m_portal.setStandardOutputFile(m_folder.filePath(QStringLiteral("log")));
    m_portal.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    m_portal.start(portalProgram, {});
    // It asks this object about itself while it starts: the question must not wait for its answer here.
    return eventually([this] {
               return m_portal.state() == QProcess::NotRunning || m_bus.interface()->isServiceRegistered(portalService);
           }) &&
           m_portal.state() == QProcess::Running;
}

void RealPortal::kill() {
    m_portal.kill();
    m_portal.waitForFinished();
}

QString RealPortal::introspect(const QString &) const {
    return {};
}

bool RealPortal::handleMessage(const QDBusMessage &message, const QDBusConnection &) {
    const auto arguments = message.arguments();
    const auto member = message.member();
    if (message.interface() == QStringLiteral("org.freedesktop.DBus.Properties")) {
        const QVariantMap properties{{QStringLiteral("version"), 1U}};
        return m_bus.send(member == QStringLiteral("GetAll")
                              ? message.createReply(QVariant(properties))
                              : message.createReply(QVariant::fromValue(QDBusVariant(1U))));
    }
    calls += member;
    if (member == QStringLiteral("CreateSession")) {
        m_session = pathIn(arguments.value(1));
        return m_bus.send(message.createReply({answer == Answer::RefuseSession ? 1U : 0U, QVariantMap()}));
    }
    if (member == QStringLiteral("BindShortcuts"))
        return m_bus.send(message.createReply({answer == Answer::RefuseBinding ? 1U : 0U, bind(arguments.value(2))}));
    return member == QStringLiteral("Close") && m_bus.send(message.createReply());
}

QVariantMap RealPortal::bind(const QVariant &shortcuts) {
    bound = qdbus_cast<QList<PortalShortcut>>(shortcuts);
    QList<PortalShortcut> granted;
    for (const auto &shortcut : bound) {
        auto properties = shortcut.properties;
        properties[QStringLiteral("trigger_description")] = QStringLiteral("Meta+") + shortcut.id;
        granted.append({shortcut.id, properties});
        if (answer == Answer::BindFirstOnly)
            break;
    }
    return {{QStringLiteral("shortcuts"), QVariant::fromValue(granted)}};
}

void RealPortal::activate(const QString &id) {
    auto signal = QDBusMessage::createSignal(path, interface, QStringLiteral("Activated"));
    signal.setArguments({QVariant::fromValue(QDBusObjectPath(m_session)), id, qulonglong{1}, QVariantMap()});
    m_bus.send(signal);
}

void RealPortal::closeSession() {
    m_bus.send(QDBusMessage::createSignal(m_session, QStringLiteral("org.freedesktop.impl.portal.Session"),
                                          QStringLiteral("Closed")));
}

} // namespace palomet::test

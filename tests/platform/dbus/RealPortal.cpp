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

using namespace Qt::StringLiterals;

namespace {

const auto portalProgram = u"/usr/libexec/xdg-desktop-portal"_s;
const auto portalService = u"org.freedesktop.portal.Desktop"_s;
const auto service = u"org.freedesktop.impl.portal.desktop.rehearsed"_s;
const auto path = u"/org/freedesktop/portal/desktop"_s;
const auto interface = u"org.freedesktop.impl.portal.GlobalShortcuts"_s;

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
    if (!describe(u"rehearsed"_s, service,
                  desktop == Desktop::HoldsKeys ? interface : u"org.freedesktop.impl.portal.Email"_s))
        return false;
    for (const auto &settings : m_settings) {
        if (!describe(settings, settings, u"org.freedesktop.impl.portal.Settings"_s))
            return false;
    }
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, m_address);
    environment.insert(u"XDG_DESKTOP_PORTAL_DIR"_s, m_folder.path());
    environment.insert(u"XDG_CURRENT_DESKTOP"_s, u"rehearsed"_s);
    for (const auto *home : {"HOME", "XDG_RUNTIME_DIR", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"})
        environment.insert(QString::fromLatin1(home), m_folder.path());
    m_portal.setProcessEnvironment(environment);
    m_portal.setProcessChannelMode(QProcess::MergedChannels);
    m_portal.setStandardOutputFile(m_folder.filePath(u"log"_s));
    m_portal.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    m_portal.start(portalProgram, {});
    // It asks this object about itself while it starts: the question must not wait for its answer here.
    return eventually([this] {
               return m_portal.state() == QProcess::NotRunning || m_bus.interface()->isServiceRegistered(portalService);
           }) &&
           m_portal.state() == QProcess::Running;
}

bool RealPortal::describe(const QString &file, const QString &name, const QString &interfaces) const {
    QFile description(m_folder.filePath(file + u".portal"_s));
    if (!description.open(QFile::WriteOnly))
        return false;
    description.write("[portal]\nDBusName=" + name.toUtf8() + "\nUseIn=rehearsed\nInterfaces=" + interfaces.toUtf8() +
                      ";\n");
    return true;
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
    if (message.interface() == u"org.freedesktop.DBus.Properties"_s) {
        const QVariantMap properties{{u"version"_s, 1U}};
        return m_bus.send(member == u"GetAll"_s ? message.createReply(QVariant(properties))
                                                : message.createReply(QVariant::fromValue(QDBusVariant(1U))));
    }
    calls += member;
    if (member == u"CreateSession"_s) {
        m_session = pathIn(arguments.value(1));
        return m_bus.send(message.createReply({answer == Answer::RefuseSession ? 1U : 0U, QVariantMap()}));
    }
    if (member == u"BindShortcuts"_s)
        return m_bus.send(message.createReply({answer == Answer::RefuseBinding ? 1U : 0U, bind(arguments.value(2))}));
    if (member == u"ListShortcuts"_s) {
        QList<PortalShortcut> list;
        for (auto trigger = known.begin(); trigger != known.end(); ++trigger)
            list.append({trigger.key(), {{u"description"_s, u"x"_s}, {u"trigger_description"_s, trigger.value()}}});
        return m_bus.send(message.createReply({0U, QVariantMap{{u"shortcuts"_s, QVariant::fromValue(list)}}}));
    }
    return member == u"Close"_s && m_bus.send(message.createReply());
}

QVariantMap RealPortal::bind(const QVariant &shortcuts) {
    bound = qdbus_cast<QList<PortalShortcut>>(shortcuts);
    QList<PortalShortcut> granted;
    for (const auto &shortcut : bound) {
        auto properties = shortcut.properties;
        properties[u"trigger_description"_s] = u"Meta+"_s + shortcut.id;
        granted.append({shortcut.id, properties});
        if (answer == Answer::BindFirstOnly)
            break;
    }
    return {{u"shortcuts"_s, QVariant::fromValue(granted)}};
}

void RealPortal::activate(const QString &id) {
    auto signal = QDBusMessage::createSignal(path, interface, u"Activated"_s);
    signal.setArguments({QVariant::fromValue(QDBusObjectPath(m_session)), id, qulonglong{1}, QVariantMap()});
    m_bus.send(signal);
}

void RealPortal::closeSession() {
    m_bus.send(QDBusMessage::createSignal(m_session, u"org.freedesktop.impl.portal.Session"_s, u"Closed"_s));
}

} // namespace palomet::test

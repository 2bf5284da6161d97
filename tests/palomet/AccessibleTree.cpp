#include "tests/palomet/AccessibleTree.h"

#include "tests/support/Eventually.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusReply>
#include <QUuid>

#include <algorithm>
#include <array>

namespace palomet::test {

using namespace Qt::StringLiterals;

namespace {

// The numbers of the states, as the protocol has them.
constexpr int checked = 4;
constexpr int focused = 12;
constexpr int selected = 23;
constexpr int showing = 25;

const AccessibleTree::Node registry{u"org.a11y.atspi.Registry"_s, u"/org/a11y/atspi/accessible/root"_s};

} // namespace

AccessibleTree::AccessibleTree(PrivateBus &bus, const QProcessEnvironment &environment)
    : m_session(bus)
    , m_bus(QString()) {
    m_launcher.setProcessEnvironment(environment);
    m_launcher.start(u"/usr/libexec/at-spi-bus-launcher"_s, {u"--launch-immediately"_s});
    m_bus = accessibilityBus();
}

AccessibleTree::~AccessibleTree() {
    QDBusConnection::disconnectFromBus(m_bus.name());
    m_launcher.terminate();
    m_launcher.waitForFinished();
}

QDBusConnection AccessibleTree::accessibilityBus() {
    auto bus = m_session.connect();
    QString address;
    eventually([&] {
        const QDBusReply<QString> reply = bus.call(
            QDBusMessage::createMethodCall(u"org.a11y.Bus"_s, u"/org/a11y/bus"_s, u"org.a11y.Bus"_s, u"GetAddress"_s));
        address = reply.value();
        return !address.isEmpty();
    });
    return QDBusConnection::connectToBus(address, QUuid::createUuid().toString());
}

QDBusMessage AccessibleTree::call(const Node &node, const char *interface, const char *method,
                                  const QVariantList &arguments) {
    auto message = QDBusMessage::createMethodCall(node.service, node.path, QString::fromLatin1(interface),
                                                  QString::fromLatin1(method));
    message.setArguments(arguments);
    return m_bus.call(message, QDBus::Block, 5000);
}

QString AccessibleTree::property(const Node &node, const char *name) {
    const auto reply = call(node, "org.freedesktop.DBus.Properties", "Get",
                            {u"org.a11y.atspi.Accessible"_s, QString::fromLatin1(name)});
    return reply.arguments().value(0).value<QDBusVariant>().variant().toString();
}

QString AccessibleTree::role(const Node &node) {
    return call(node, "org.a11y.atspi.Accessible", "GetRoleName").arguments().value(0).toString();
}

bool AccessibleTree::hasState(const Node &node, int state) {
    const auto reply = call(node, "org.a11y.atspi.Accessible", "GetState");
    if (reply.signature() != u"au"_s)
        return false;
    const auto words = qdbus_cast<QList<uint>>(reply.arguments().constFirst());
    return (words.value(state / 32) >> (state % 32) & 1U) != 0;
}

bool AccessibleTree::isChecked(const Node &node) {
    return hasState(node, checked);
}

bool AccessibleTree::isSelected(const Node &node) {
    return hasState(node, selected);
}

bool AccessibleTree::isFocused(const Node &node) {
    return hasState(node, focused);
}

bool AccessibleTree::isShowing(const Node &node) {
    return hasState(node, showing);
}

bool AccessibleTree::hasPlace(const Node &node) {
    const auto reply = call(node, "org.a11y.atspi.Component", "GetExtents", {0U});
    if (reply.signature() != u"(iiii)"_s)
        return false;
    std::array<int, 4> extents{};
    const auto place = reply.arguments().constFirst().value<QDBusArgument>();
    place.beginStructure();
    for (auto &extent : extents)
        place >> extent;
    place.endStructure();
    return extents[2] > 0 && extents[3] > 0;
}

std::vector<AccessibleTree::Node> AccessibleTree::children(const Node &node) {
    const auto reply = call(node, "org.a11y.atspi.Accessible", "GetChildren");
    if (reply.signature() != u"a(so)"_s)
        return {};
    std::vector<Node> found;
    const auto list = reply.arguments().constFirst().value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
        QString service;
        QDBusObjectPath path;
        list.beginStructure();
        list >> service >> path;
        list.endStructure();
        found.push_back({service, path.path()});
    }
    list.endArray();
    return found;
}

void AccessibleTree::collect(const Node &from, const QString &wanted, std::vector<Node> &found) {
    for (const auto &child : children(from)) {
        if (role(child) == wanted && hasPlace(child))
            found.push_back(child);
        collect(child, wanted, found);
    }
}

std::vector<AccessibleTree::Node> AccessibleTree::all(const QString &wanted) {
    std::vector<Node> found;
    for (const auto &program : children(registry)) {
        if (name(program) == u"palomet"_s || name(program) == u"Palomet"_s)
            collect(program, wanted, found);
    }
    return found;
}

std::optional<AccessibleTree::Node> AccessibleTree::find(const QString &wanted, const QString &text) {
    std::optional<Node> found;
    eventually([&] {
        for (const auto &node : all(wanted)) {
            if (name(node) == text)
                found = node;
        }
        return found.has_value();
    });
    return found;
}

bool AccessibleTree::press(const Node &node) {
    const auto reply = call(node, "org.a11y.atspi.Action", "GetActions");
    if (reply.signature() != u"a(sss)"_s)
        return false;
    const auto list = reply.arguments().constFirst().value<QDBusArgument>();
    QStringList names;
    list.beginArray();
    while (!list.atEnd()) {
        QString name;
        QString description;
        QString key;
        list.beginStructure();
        list >> name >> description >> key;
        list.endStructure();
        names.append(name);
    }
    list.endArray();
    const auto at = std::max({names.indexOf(u"Press"_s), names.indexOf(u"Toggle"_s)});
    return at >= 0 &&
           call(node, "org.a11y.atspi.Action", "DoAction", {static_cast<int>(at)}).type() == QDBusMessage::ReplyMessage;
}

bool AccessibleTree::focus(const Node &node) {
    return call(node, "org.a11y.atspi.Component", "GrabFocus").type() == QDBusMessage::ReplyMessage;
}

} // namespace palomet::test

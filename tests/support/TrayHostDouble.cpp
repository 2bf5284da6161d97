#include "tests/support/TrayHostDouble.h"

#include <QDBusMessage>
#include <QDBusVariant>

#include <algorithm>

namespace palomet::test {

using namespace Qt::StringLiterals;

namespace {

const auto watcherName = u"org.kde.StatusNotifierWatcher"_s;
const auto watcherPath = u"/StatusNotifierWatcher"_s;

QVariant plain(const QVariant &value) {
    return value.canConvert<QDBusVariant>() ? value.value<QDBusVariant>().variant() : value;
}

TrayMenuEntry entryFrom(const QDBusArgument &argument) {
    TrayMenuEntry entry;
    argument.beginStructure();
    argument >> entry.id >> entry.properties;
    argument.beginArray();
    while (!argument.atEnd()) {
        QDBusVariant child;
        argument >> child;
        entry.children.push_back(entryFrom(child.variant().value<QDBusArgument>()));
    }
    argument.endArray();
    argument.endStructure();
    return entry;
}

} // namespace

QString TrayMenuEntry::title() const {
    const auto label = properties.value(u"label"_s).toString();
    QString shown;
    for (qsizetype index = 0; index < label.size(); ++index) {
        if (label[index] == u'_' && ++index == label.size())
            break;
        shown += label[index];
    }
    return shown;
}

bool TrayMenuEntry::isSeparator() const {
    return properties.value(u"type"_s) == u"separator"_s;
}

bool TrayMenuEntry::isEnabled() const {
    return properties.value(u"enabled"_s, true).toBool();
}

QString TrayMenuEntry::shortcut() const {
    const auto combinations = qdbus_cast<QList<QStringList>>(properties.value(u"shortcut"_s));
    return combinations.isEmpty() ? QString() : combinations.front().join(u'+');
}

TrayHostDouble::TrayHostDouble(const QDBusConnection &bus)
    : m_bus(bus) {
    new TrayWatcherAdaptor(*this);
}

TrayHostDouble::~TrayHostDouble() {
    vanish();
}

void TrayHostDouble::appear(Host host) {
    m_host = host;
    m_items.clear();
    m_bus.registerObject(watcherPath, this, QDBusConnection::ExportAdaptors);
    m_bus.registerService(watcherName);
}

void TrayHostDouble::vanish() {
    m_bus.unregisterService(watcherName);
    m_bus.unregisterObject(watcherPath);
    m_items.clear();
}

void TrayHostDouble::setHost(Host host) {
    m_host = host;
    auto *watcher = findChild<TrayWatcherAdaptor *>();
    if (host == Host::Present)
        Q_EMIT watcher->StatusNotifierHostRegistered();
    else
        Q_EMIT watcher->StatusNotifierHostUnregistered();
}

void TrayHostDouble::registerItem(const QString &service) {
    m_items.append(service);
}

QVariant TrayHostDouble::property(const QString &name) const {
    if (m_items.isEmpty())
        return {};
    auto call = QDBusMessage::createMethodCall(m_items.constLast(), u"/StatusNotifierItem"_s,
                                               u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    call.setArguments({u"org.kde.StatusNotifierItem"_s, name});
    return plain(m_bus.call(call).arguments().value(0));
}

void TrayHostDouble::activate() {
    if (m_items.isEmpty())
        return;
    auto call = QDBusMessage::createMethodCall(m_items.constLast(), u"/StatusNotifierItem"_s,
                                               u"org.kde.StatusNotifierItem"_s, u"Activate"_s);
    call.setArguments({0, 0});
    m_bus.call(call);
}

std::vector<TrayMenuEntry> TrayHostDouble::menu() const {
    const auto answer = callMenu(u"GetLayout"_s, {0, -1, QStringList()});
    return answer.size() == 2 ? entryFrom(answer[1].value<QDBusArgument>()).children : std::vector<TrayMenuEntry>();
}

void TrayHostDouble::open() {
    callMenu(u"AboutToShow"_s, {0});
}

bool TrayHostDouble::click(const QString &title) {
    const auto entries = menu();
    const auto entry =
        std::find_if(entries.begin(), entries.end(), [&](const auto &candidate) { return candidate.title() == title; });
    if (entry == entries.end())
        return false;
    callMenu(u"Event"_s, {entry->id, u"clicked"_s, QVariant::fromValue(QDBusVariant(0)), 0U});
    return true;
}

QVariantList TrayHostDouble::callMenu(const QString &method, const QVariantList &arguments) const {
    if (m_items.isEmpty())
        return {};
    auto call = QDBusMessage::createMethodCall(m_items.constLast(), u"/MenuBar"_s, u"com.canonical.dbusmenu"_s, method);
    call.setArguments(arguments);
    return m_bus.call(call).arguments();
}

} // namespace palomet::test

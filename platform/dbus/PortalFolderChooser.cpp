#include "platform/dbus/PortalFolderChooser.h"

#include "platform/dbus/PortalNames.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <utility>

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

/// The first that knows of folders.
constexpr uint firstWithFolders = 3;
/// A portal that does not say its version in this time, in milliseconds, is none: somebody waits for a dialog.
constexpr int versionWithin = 3'000;

QStringList foldersOf(const QVariant &uris) {
    QStringList folders;
    for (const auto &uri : uris.toStringList()) {
        const QUrl url(uri);
        if (url.isLocalFile() && QFileInfo(url.toLocalFile()).isDir())
            folders.append(url.toLocalFile());
    }
    return folders;
}

} // namespace

PortalFolderChooser::PortalFolderChooser(const QDBusConnection &bus, bool isX11)
    : m_bus(bus)
    , m_isX11(isX11)
    , m_watcher(portal::service, bus, QDBusServiceWatcher::WatchForUnregistration)
    , m_portal(bus, portal::fileChooser) {
    // A portal that ends takes its dialog with it.
    connect(&m_watcher, &QDBusServiceWatcher::serviceUnregistered, this, &PortalFolderChooser::end);
}

PortalFolderChooser::~PortalFolderChooser() {
    m_portal.close();
}

void PortalFolderChooser::ask(const Request &request, std::function<void(const QStringList &)> picked,
                              std::function<void()> missing) {
    if (m_picked)
        return;
    if (!m_bus.isConnected())
        return missing();
    m_request = request;
    m_picked = std::move(picked);
    m_missing = std::move(missing);
    auto version =
        QDBusMessage::createMethodCall(portal::service, portal::path, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    version.setArguments({portal::fileChooser, u"version"_s});
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(version, versionWithin), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, count = ++m_count] {
        watcher->deleteLater();
        if (!m_picked || count != m_count)
            return;
        const auto told = watcher->reply().arguments().value(0).value<QDBusVariant>().variant();
        if (told.toUInt() >= firstWithFolders)
            open();
        else
            fail();
    });
}

void PortalFolderChooser::open() {
    const auto owner = m_isX11 && m_request.owner != 0 ? u"x11:"_s + QString::number(m_request.owner, 16) : QString();
    // A file's name is bytes, and ends with a null.
    const auto home = QFile::encodeName(m_request.home) + '\0';
    const auto arguments = [&](const QString &token) {
        return QVariantList{owner, m_request.title,
                            QVariantMap{{u"handle_token"_s, token},
                                        {u"accept_label"_s, m_request.acceptLabel},
                                        {u"modal"_s, true},
                                        {u"multiple"_s, true},
                                        {u"directory"_s, true},
                                        {u"current_folder"_s, home}}};
    };
    m_portal.make(u"OpenFile"_s, arguments, [this](const auto &response) { answered(response); });
}

void PortalFolderChooser::answered(const PortalResponse &response) {
    // Neither chosen nor cancelled: whoever was to show the dialog could not.
    if (!response.results && !response.isCancelled)
        return fail();
    const auto picked = m_picked;
    const auto folders = foldersOf(response.results.value_or(QVariantMap())[u"uris"_s]);
    end();
    if (!folders.isEmpty())
        picked(folders);
}

void PortalFolderChooser::fail() {
    const auto missing = m_missing;
    end();
    missing();
}

void PortalFolderChooser::end() {
    m_portal.withdraw();
    m_picked = {};
    m_missing = {};
}

} // namespace palomet

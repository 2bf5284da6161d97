#include "platform/dbus/PortalFolderChooser.h"

#include "platform/dbus/PortalNames.h"

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

enum Response : uint { Success, Cancelled };

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
    , m_watcher(portal::service, bus, QDBusServiceWatcher::WatchForUnregistration) {
    // A portal that ends takes its dialog with it.
    connect(&m_watcher, &QDBusServiceWatcher::serviceUnregistered, this, &PortalFolderChooser::end);
}

PortalFolderChooser::~PortalFolderChooser() {
    if (!m_path.isEmpty())
        m_bus.send(QDBusMessage::createMethodCall(portal::service, m_path, portal::request, u"Close"_s));
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
    ++m_count;
    auto version =
        QDBusMessage::createMethodCall(portal::service, portal::path, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    version.setArguments({portal::fileChooser, u"version"_s});
    call(version, versionWithin, [this](const QDBusMessage &reply) {
        if (reply.arguments().value(0).value<QDBusVariant>().variant().toUInt() >= firstWithFolders)
            open();
        else
            fail();
    });
}

void PortalFolderChooser::open() {
    const auto token = u"palometFolders%1"_s.arg(m_count);
    const auto sender = m_bus.baseService().mid(1).replace(u'.', u'_');
    // Before it is made, or the answer might come first.
    m_path = u"%1/request/%2/%3"_s.arg(portal::path, sender, token);
    m_bus.connect({}, m_path, portal::request, u"Response"_s, this, SLOT(responded(uint, QVariantMap)));
    const auto owner = m_isX11 && m_request.owner != 0 ? u"x11:"_s + QString::number(m_request.owner, 16) : QString();
    // A file's name is bytes, and ends with a null.
    const auto home = QFile::encodeName(m_request.home) + '\0';
    auto message = QDBusMessage::createMethodCall(portal::service, portal::path, portal::fileChooser, u"OpenFile"_s);
    message.setArguments({owner, m_request.title,
                          QVariantMap{{u"handle_token"_s, token},
                                      {u"accept_label"_s, m_request.acceptLabel},
                                      {u"modal"_s, true},
                                      {u"multiple"_s, true},
                                      {u"directory"_s, true},
                                      {u"current_folder"_s, home}}});
    call(message, -1, [this](const QDBusMessage &reply) {
        // The answer proper comes by the request's signal; here only that there will be none.
        if (reply.type() == QDBusMessage::ErrorMessage)
            fail();
    });
}

void PortalFolderChooser::call(const QDBusMessage &message, int timeout,
                               std::function<void(const QDBusMessage &)> answered) {
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message, timeout), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, watcher, count = m_count, answered = std::move(answered)] {
                watcher->deleteLater();
                if (m_picked && count == m_count)
                    answered(watcher->reply());
            });
}

void PortalFolderChooser::responded(uint code, const QVariantMap &results) {
    if (!m_picked)
        return;
    // Neither chosen nor cancelled: whoever was to show the dialog could not.
    if (code > Cancelled)
        return fail();
    const auto picked = m_picked;
    const auto folders = code == Success ? foldersOf(results[u"uris"_s]) : QStringList();
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
    if (!m_path.isEmpty())
        m_bus.disconnect({}, m_path, portal::request, u"Response"_s, this, SLOT(responded(uint, QVariantMap)));
    m_path.clear();
    m_picked = {};
    m_missing = {};
}

} // namespace palomet

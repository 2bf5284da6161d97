#pragma once

#include "platform/dbus/PortalRequest.h"
#include "ui/shell/FolderChooser.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>

namespace palomet {

/// The file chooser of the desktop's portal, which is the desktop's own dialog, in its look and its language. Nothing
/// here waits for an answer.
class PortalFolderChooser final : public QObject, public FolderChooser {
    Q_OBJECT

public:
    /// `isX11`: whether windows are X11's, so that the portal can be told in front of which one to stand.
    PortalFolderChooser(const QDBusConnection &bus, bool isX11);
    ~PortalFolderChooser() override;

    void ask(const Request &request, std::function<void(const QStringList &folders)> picked,
             std::function<void()> missing) override;

private:
    void open();
    void answered(const PortalResponse &response);
    void fail();
    /// The request is over, and its callbacks are forgotten.
    void end();

    QDBusConnection m_bus;
    const bool m_isX11;
    QDBusServiceWatcher m_watcher;
    PortalRequest m_portal;
    Request m_request;
    std::function<void(const QStringList &)> m_picked; ///< Empty while no request is open.
    std::function<void()> m_missing;
    quint64 m_count = 0; ///< Of the requests; the answer to an earlier one's question does not count.
};

} // namespace palomet

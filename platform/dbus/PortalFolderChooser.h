#pragma once

#include "ui/shell/FolderChooser.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QVariantMap>

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

private Q_SLOTS:
    void responded(uint code, const QVariantMap &results);

private:
    /// Calls `answered` with the reply, unless another request has been made meanwhile, or this one is over.
    void call(const QDBusMessage &message, int timeout, std::function<void(const QDBusMessage &)> answered);
    void open();
    void fail();
    /// The request is over, and its callbacks are forgotten.
    void end();

    QDBusConnection m_bus;
    const bool m_isX11;
    QDBusServiceWatcher m_watcher;
    Request m_request;
    std::function<void(const QStringList &)> m_picked; ///< Empty while no request is open.
    std::function<void()> m_missing;
    QString m_path; ///< Of the portal's request, once it was made.
    quint64 m_count = 0;
};

} // namespace palomet

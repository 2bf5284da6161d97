#include "platform/dbus/grantsGlobalShortcuts.h"

#include "platform/dbus/PortalNames.h"
#include "platform/dbus/PortalRequest.h"

#include <QDBusMessage>
#include <QEventLoop>
#include <QTimer>

namespace palomet {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

bool grantsGlobalShortcuts(const QDBusConnection &bus) {
    if (!bus.isConnected())
        return false;
    QEventLoop loop;
    QTimer::singleShot(2s, &loop, &QEventLoop::quit);
    bool isMade = false;
    PortalRequest request(bus, portal::globalShortcuts);
    const auto arguments = [](const QString &token) {
        // Another name than that of the program's session, which may be open.
        return QVariantList{QVariantMap{{u"handle_token"_s, token}, {u"session_handle_token"_s, u"palomet_doctor"_s}}};
    };
    request.make(u"CreateSession"_s, arguments, [&](const auto &response) {
        isMade = response.results.has_value();
        loop.quit();
    });
    loop.exec();
    if (isMade) {
        const auto sender = bus.baseService().mid(1).replace(u'.', u'_');
        const auto path = u"%1/session/%2/palomet_doctor"_s.arg(portal::path, sender);
        bus.send(QDBusMessage::createMethodCall(portal::service, path, portal::session, u"Close"_s));
    }
    return isMade;
}

} // namespace palomet

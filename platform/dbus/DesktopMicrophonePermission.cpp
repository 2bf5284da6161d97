#include "platform/dbus/DesktopMicrophonePermission.h"

#include <utility>

namespace palomet {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

constexpr auto patience = 1s;

} // namespace

DesktopMicrophonePermission::DesktopMicrophonePermission(const QDBusConnection &bus, QString application,
                                                         Scheduler &scheduler)
    : m_application(std::move(application))
    , m_privacy(bus, u"org.gnome.desktop.privacy"_s, u"disable-microphone"_s)
    , m_store(bus, u"microphone"_s)
    , m_deadline(scheduler.after(patience, [this] { settle(); })) {
    const auto settleWhenBothAnswered = [this] {
        if (m_privacy.isSettled() && m_store.isSettled())
            settle();
    };
    QObject::connect(&m_privacy, &PortalSetting::changed, &m_receiver, settleWhenBothAnswered);
    QObject::connect(&m_store, &PermissionStore::changed, &m_receiver, [this, settleWhenBothAnswered] {
        m_isRefused = false;
        settleWhenBothAnswered();
    });
}

MicrophoneStatus DesktopMicrophonePermission::status() const {
    if (!m_isDetermined)
        return MicrophoneStatus::NotDetermined;
    if (m_privacy.value().typeId() == QMetaType::Bool && m_privacy.value().toBool())
        return MicrophoneStatus::Restricted;
    if (m_isRefused || m_store.permission(m_application) == "no"_L1)
        return MicrophoneStatus::Denied;
    return MicrophoneStatus::Authorized;
}

void DesktopMicrophonePermission::request(std::function<void()> answered) {
    if (m_isDetermined)
        QMetaObject::invokeMethod(&m_receiver, std::move(answered), Qt::QueuedConnection);
    else
        m_askers.push_back(std::move(answered));
}

void DesktopMicrophonePermission::settle() {
    m_deadline.reset();
    m_isDetermined = true;
    for (const auto &answered : std::exchange(m_askers, {}))
        answered();
}

} // namespace palomet

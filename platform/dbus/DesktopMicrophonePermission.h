#pragma once

#include "base/Scheduler.h"
#include "model/MicrophonePermission.h"
#include "platform/dbus/PermissionStore.h"
#include "platform/dbus/PortalSetting.h"

#include <vector>

namespace palomet {

/// A Linux desktop has no single authority, but the privacy switch for all microphones (restricted), the store of
/// the users' answers by application and the sound server, which may refuse (denied). Where none of them objects the
/// microphone is authorised. Who has not answered within a second has no objection until it answers.
class DesktopMicrophonePermission final : public MicrophonePermission {
public:
    /// `application` is the application's id. `scheduler` outlives this object.
    DesktopMicrophonePermission(const QDBusConnection &bus, QString application, Scheduler &scheduler);

    [[nodiscard]] MicrophoneStatus status() const override;
    void request(std::function<void()> answered) override;

    /// The sound server refused access to the microphone; holds until it grants it, or the user's answer in the store
    /// is changed.
    void soundServerRefused() { m_isRefused = true; }
    void soundServerGranted() { m_isRefused = false; }

private:
    void settle();

    const QString m_application;
    PortalSetting m_privacy;
    PermissionStore m_store;
    bool m_isRefused = false;
    bool m_isDetermined = false;
    std::vector<std::function<void()>> m_askers;
    Scheduler::Handle m_deadline;
    /// Receives the answers that are due from the event loop.
    QObject m_receiver;
};

} // namespace palomet

#include "platform/pulse/PulseMainloop.h"

#include "platform/pulse/RealTimeThread.h"

#include <pulse/mainloop-api.h>
#include <unistd.h>

namespace palomet {

PulseMainloop::PulseMainloop()
    : m_loop(pa_threaded_mainloop_new()) {
    if (!m_loop)
        qFatal("The sound thread cannot be made");
    pa_threaded_mainloop_set_name(m_loop.get(), "palomet-sound");
    if (pa_threaded_mainloop_start(m_loop.get()) < 0)
        qFatal("The sound thread cannot be started");
    const Lock lock(*this);
    pa_mainloop_api_once(api(), &PulseMainloop::onStarted, this);
}

void PulseMainloop::onStarted(pa_mainloop_api *, void *self) {
    if (makeThisThreadRealTime())
        return;
    auto &receiver = static_cast<PulseMainloop *>(self)->m_receiver;
    QMetaObject::invokeMethod(
        &receiver, [thread = gettid()] { askForRealTime(QDBusConnection::systemBus(), thread); }, Qt::QueuedConnection);
}

PulseMainloop::~PulseMainloop() {
    pa_threaded_mainloop_stop(m_loop.get());
}

} // namespace palomet

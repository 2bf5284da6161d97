#include "platform/pulse/PulseMainloop.h"

#include <QtGlobal>

namespace palomet {

PulseMainloop::PulseMainloop()
    : m_loop(pa_threaded_mainloop_new()) {
    if (!m_loop)
        qFatal("The sound thread cannot be made");
    pa_threaded_mainloop_set_name(m_loop.get(), "palomet-sound");
    if (pa_threaded_mainloop_start(m_loop.get()) < 0)
        qFatal("The sound thread cannot be started");
}

PulseMainloop::~PulseMainloop() {
    pa_threaded_mainloop_stop(m_loop.get());
}

} // namespace palomet

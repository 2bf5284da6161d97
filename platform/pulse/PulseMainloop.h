#pragma once

#include <QObject>

#include <pulse/thread-mainloop.h>

#include <memory>

namespace palomet {

/// libpulse's thread, which runs every callback of its handles, in real time if the system allows that. It lives as
/// long as this object, which lives on the main thread.
class PulseMainloop {
public:
    /// Fatal when no thread can be had: the program cannot go on.
    PulseMainloop();
    ~PulseMainloop();
    PulseMainloop(const PulseMainloop &) = delete;
    PulseMainloop &operator=(const PulseMainloop &) = delete;

    [[nodiscard]] pa_mainloop_api *api() const { return pa_threaded_mainloop_get_api(m_loop.get()); }

    /// Keeps the thread out of its callbacks while another thread uses a handle. Samples wait meanwhile: hold it for
    /// single calls of libpulse, none of which waits for the server. Never taken on the thread itself, whose callbacks
    /// hold it already.
    class Lock {
    public:
        explicit Lock(const PulseMainloop &mainloop)
            : m_loop(mainloop.m_loop.get()) {
            pa_threaded_mainloop_lock(m_loop);
        }
        ~Lock() { pa_threaded_mainloop_unlock(m_loop); }
        Lock(const Lock &) = delete;
        Lock &operator=(const Lock &) = delete;

    private:
        pa_threaded_mainloop *m_loop;
    };

private:
    struct End {
        void operator()(pa_threaded_mainloop *loop) const noexcept { pa_threaded_mainloop_free(loop); }
    };
    static void onStarted(pa_mainloop_api *api, void *self);

    QObject m_receiver; ///< Outlives the thread, which asks this one for what it may not do itself.
    std::unique_ptr<pa_threaded_mainloop, End> m_loop;
};

} // namespace palomet

#pragma once

#include "audio/SoundServer.h"
#include "platform/pulse/PulseHandles.h"
#include "platform/pulse/PulseMainloop.h"

#include <QObject>
#include <QSemaphore>

#include <pulse/introspect.h>
#include <pulse/subscribe.h>

#include <atomic>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace palomet {

/// The input devices, as the server tells of them.
struct PulseDevices {
    std::vector<InputDevice> inputs;     ///< In the server's order, without the monitors of outputs.
    std::optional<QString> defaultInput; ///< None when the default is no input device.

    bool operator==(const PulseDevices &) const = default;
};

/// Hears of everything that changes on the server and can be turned or moved: on the main loop's thread.
class PulseWatcher {
public:
    virtual void changed(pa_subscription_event_type_t event, std::uint32_t index) = 0;

protected:
    ~PulseWatcher() = default;
};

/// One attempt to reach the sound server, and the connection that came of it. It is not used again once it has ended.
/// Lives on the main thread and calls back there, never after its own end and never from within a call.
class PulseConnection {
public:
    struct Events {
        std::function<void()> ready;    ///< The server answers; events of it are heard from now on.
        std::function<void(int)> ended; ///< Refused, lost or never made, with a `pa_error_code_t`. Called once.
        std::function<void()> changed;  ///< Something about devices or defaults changed. May come in floods.
        /// The answer to `askForDevices`; nothing when the server failed to give one.
        std::function<void(const std::optional<PulseDevices> &)> devices;
    };

    /// `server` is an address as libpulse takes it; empty for the user's own server.
    PulseConnection(PulseMainloop &mainloop, const std::string &server, Events events);
    /// Waits until the server has taken a `setDefaultInput`, so that the last wish of a program that ends comes
    /// through, but no longer than a quarter of a second.
    ~PulseConnection();
    PulseConnection(const PulseConnection &) = delete;
    PulseConnection &operator=(const PulseConnection &) = delete;

    /// One at a time. Answered by `devices`.
    void askForDevices();

    /// Whether it worked is not told.
    void setDefaultInput(const QString &id);

    /// An unconnected stream of the program's one format; null when libpulse cannot make it. Under the lock.
    [[nodiscard]] PulseStream newStream() const;

    [[nodiscard]] const PulseMainloop &mainloop() const { return m_mainloop; }
    /// From `add` to `remove` it is told of changes. Under the lock.
    void add(PulseWatcher &watcher) { m_watchers.push_back(&watcher); }
    void remove(PulseWatcher &watcher) { std::erase(m_watchers, &watcher); }
    /// Under the lock.
    [[nodiscard]] pa_context *context() const { return m_context.get(); }

private:
    static void onState(pa_context *context, void *self);
    static void onServer(pa_context *context, const pa_server_info *server, void *self);
    static void onSource(pa_context *context, const pa_source_info *source, int end, void *self);
    static void onChange(pa_context *context, pa_subscription_event_type_t event, std::uint32_t index, void *self);
    void end(int error);
    void change();
    void answer(std::optional<PulseDevices> devices);
    template <typename Action>
    void post(Action action);

    PulseMainloop &m_mainloop;
    const Events m_events;
    QObject m_receiver; ///< What is on its way to the main thread is dropped with it.

    // Under the main loop's lock:
    PulseContext m_context;
    std::vector<PulseWatcher *> m_watchers;
    bool m_hasEnded = false;
    PulseOperation m_askingServer;
    PulseOperation m_askingSources;
    PulseDevices m_collected;
    QString m_defaultSource;

    std::atomic<bool> m_isChangeOnItsWay = false;
    int m_settingsSent = 0; ///< Main thread.
    QSemaphore m_settingsTaken;
};

} // namespace palomet

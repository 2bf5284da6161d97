#pragma once

#include <QByteArray>
#include <QTemporaryDir>

#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

struct wl_display;
struct wl_resource;

namespace palomet::test {

/// A compositor that shows nothing and notes what it is told, on a thread and in a runtime folder of its own. It is
/// where the environment says that one is, and ends with this object.
class CompositorDouble {
public:
    struct Abilities {
        bool hasLayerShell = true;
        bool hasOutput = true;  ///< Without a screen, a layer's surface is closed as soon as it asks for a place.
        QByteArray keymap = {}; ///< Empty: there is no keyboard.
    };

    explicit CompositorDouble(Abilities abilities);
    ~CompositorDouble();

    /// The requests of surfaces and layers until now, in their order: "set_margin 0 0 48 0".
    [[nodiscard]] std::vector<std::string> requests();

    /// Takes the layer's surface away.
    void closeLayer();

private:
    struct Dispatch;

    /// Has the compositor's thread do it, and waits until it has.
    void onThread(const std::function<void()> &task);

    const Abilities m_abilities;
    QTemporaryDir m_folder;
    int m_tasks[2] = {-1, -1};
    wl_display *m_display = nullptr;
    wl_resource *m_layer = nullptr;
    std::mutex m_mutex;
    std::vector<std::string> m_requests;
    std::thread m_thread;
};

} // namespace palomet::test

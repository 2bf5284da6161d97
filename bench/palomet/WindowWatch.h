#pragma once

#include <QByteArray>

#include <chrono>
#include <cstdint>
#include <memory>

struct xcb_connection_t;

namespace palomet::bench {

/// Sees from outside when a window appears on a display that has no window manager.
class WindowWatch {
public:
    explicit WindowWatch(const QByteArray &display);
    ~WindowWatch();

    /// Waits, in vain for at most ten seconds, until a window of at least 900 pixels' width is mapped and something is
    /// drawn in it. True when it is.
    bool awaitShown();

    /// Asks its program to close that window, as a window manager does.
    void askToClose() const;

    /// Waits until that window is gone. True when it is.
    bool awaitHidden();

private:
    bool isDrawn() const;
    bool await(std::uint8_t event);

    struct Close {
        void operator()(xcb_connection_t *connection) const;
    };
    std::unique_ptr<xcb_connection_t, Close> m_connection;
    std::uint32_t m_window = 0;
};

} // namespace palomet::bench

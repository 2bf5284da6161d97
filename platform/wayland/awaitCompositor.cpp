#include "platform/wayland/awaitCompositor.h"

#include <poll.h>
#include <wayland-client-core.h>

#include <algorithm>
#include <cerrno>
#include <chrono>

namespace palomet {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

namespace {

constexpr auto answersWithin = 1s;

/// Whether there is something to read, or to be seen wrong with the connection, before then.
bool awaitInput(int descriptor, Clock::time_point end) {
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
        pollfd watched{.fd = descriptor, .events = POLLIN, .revents = 0};
        const int count = poll(&watched, 1, static_cast<int>(std::max(left, 0ms).count()));
        if (count >= 0 || errno != EINTR)
            return count > 0;
    }
}

} // namespace

bool awaitCompositor(wl_display *display, wl_event_queue *queue, const std::function<bool()> &isDone) {
    const auto end = Clock::now() + answersWithin;
    while (!isDone()) {
        if (wl_display_prepare_read_queue(display, queue) != 0) {
            // Events were read already, by another thread perhaps.
            if (wl_display_dispatch_queue_pending(display, queue) < 0)
                return false;
            continue;
        }
        wl_display_flush(display);
        if (!awaitInput(wl_display_get_fd(display), end)) {
            wl_display_cancel_read(display);
            return false;
        }
        if (wl_display_read_events(display) < 0 || wl_display_dispatch_queue_pending(display, queue) < 0)
            return false;
    }
    return true;
}

} // namespace palomet

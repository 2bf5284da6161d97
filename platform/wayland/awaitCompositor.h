#pragma once

#include <functional>

struct wl_display;
struct wl_event_queue;

namespace palomet {

/// Handles the events of a queue as they come until `isDone`, for a second at most: a compositor that stands still does
/// not hold the program. Whether it was done. Other threads may read from the display meanwhile.
bool awaitCompositor(wl_display *display, wl_event_queue *queue, const std::function<bool()> &isDone);

} // namespace palomet

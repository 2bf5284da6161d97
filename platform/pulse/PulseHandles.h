#pragma once

#include <pulse/context.h>
#include <pulse/mainloop-api.h>
#include <pulse/operation.h>
#include <pulse/proplist.h>
#include <pulse/stream.h>
#include <pulse/subscribe.h>

#include <memory>

namespace palomet {

// Owners of libpulse's handles. They are made, used and ended under the main loop's lock. Ending one also ends its
// callbacks: nothing of it is called any more.

struct EndPulseContext {
    void operator()(pa_context *context) const noexcept {
        pa_context_set_state_callback(context, nullptr, nullptr);
        pa_context_set_subscribe_callback(context, nullptr, nullptr);
        pa_context_disconnect(context);
        pa_context_unref(context);
    }
};
using PulseContext = std::unique_ptr<pa_context, EndPulseContext>;

struct EndPulseStream {
    void operator()(pa_stream *stream) const noexcept {
        pa_stream_set_state_callback(stream, nullptr, nullptr);
        pa_stream_set_read_callback(stream, nullptr, nullptr);
        pa_stream_set_write_callback(stream, nullptr, nullptr);
        pa_stream_set_moved_callback(stream, nullptr, nullptr);
        pa_stream_set_suspended_callback(stream, nullptr, nullptr);
        // libpulse cannot take back a stream that the server has yet to confirm: let go now, the server would keep it,
        // and the microphone with it, until the connection ends. So it is ended when it is confirmed.
        if (pa_stream_get_state(stream) == PA_STREAM_CREATING)
            pa_stream_set_state_callback(stream, &EndPulseStream::endWhenMade, nullptr);
        else
            end(stream);
    }

private:
    static void end(pa_stream *stream) noexcept {
        pa_stream_disconnect(stream);
        pa_stream_unref(stream);
    }
    static void endWhenMade(pa_stream *stream, void *) noexcept {
        pa_stream_set_state_callback(stream, nullptr, nullptr);
        end(stream);
    }
};
using PulseStream = std::unique_ptr<pa_stream, EndPulseStream>;

struct EndPulseOperation {
    void operator()(pa_operation *operation) const noexcept {
        pa_operation_cancel(operation);
        pa_operation_unref(operation);
    }
};
/// Ending it means that its answer is not wanted any more.
using PulseOperation = std::unique_ptr<pa_operation, EndPulseOperation>;

struct EndPulseTimer {
    pa_mainloop_api *api = nullptr;
    void operator()(pa_time_event *timer) const noexcept { api->time_free(timer); }
};
using PulseTimer = std::unique_ptr<pa_time_event, EndPulseTimer>;

struct EndPulseProperties {
    void operator()(pa_proplist *properties) const noexcept { pa_proplist_free(properties); }
};
using PulseProperties = std::unique_ptr<pa_proplist, EndPulseProperties>;

} // namespace palomet

#include "bench/palomet/WindowWatch.h"

#include <poll.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace palomet::bench {
namespace {

using Clock = std::chrono::steady_clock;

constexpr auto limit = std::chrono::seconds(10);
constexpr int leastWidth = 900;

template <typename Reply>
using Owned = std::unique_ptr<Reply, decltype(&std::free)>;

template <typename Reply>
Owned<Reply> own(Reply *reply) {
    return {reply, &std::free};
}

} // namespace

void WindowWatch::Close::operator()(xcb_connection_t *connection) const {
    xcb_disconnect(connection);
}

WindowWatch::WindowWatch(const QByteArray &display)
    : m_connection(xcb_connect(display.constData(), nullptr)) {
    const auto root = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data->root;
    const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_connection.get(), root, XCB_CW_EVENT_MASK, &mask);
    // Known to the server before anything is shown.
    own(xcb_get_input_focus_reply(m_connection.get(), xcb_get_input_focus(m_connection.get()), nullptr));
}

WindowWatch::~WindowWatch() = default;

bool WindowWatch::awaitShown() {
    if (!await(XCB_MAP_NOTIFY))
        return false;
    const auto end = Clock::now() + limit;
    while (!isDrawn()) {
        if (Clock::now() > end)
            return false;
    }
    return true;
}

void WindowWatch::askToClose() const {
    const auto atom = [this](std::string_view name) {
        const auto cookie =
            xcb_intern_atom(m_connection.get(), 0, static_cast<std::uint16_t>(name.size()), name.data());
        const auto reply = own(xcb_intern_atom_reply(m_connection.get(), cookie, nullptr));
        return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    };
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = m_window;
    message.type = atom("WM_PROTOCOLS");
    message.data.data32[0] = atom("WM_DELETE_WINDOW");
    xcb_send_event(m_connection.get(), 0, m_window, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char *>(&message));
    xcb_flush(m_connection.get());
}

bool WindowWatch::awaitHidden() {
    return await(XCB_UNMAP_NOTIFY);
}

/// A window is black until something is drawn, and what is drawn is as light in a corner.
bool WindowWatch::isDrawn() const {
    const auto image = own(xcb_get_image_reply(
        m_connection.get(),
        xcb_get_image(m_connection.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, m_window, 4, 4, 1, 1, ~std::uint32_t{0}),
        nullptr));
    if (!image || xcb_get_image_data_length(image.get()) < 3)
        return false;
    const auto *pixel = xcb_get_image_data(image.get());
    return std::all_of(pixel, pixel + 3, [](std::uint8_t channel) { return channel > 0x80; });
}

bool WindowWatch::await(std::uint8_t awaited) {
    const auto end = Clock::now() + limit;
    for (;;) {
        while (const auto event = own(xcb_poll_for_event(m_connection.get()))) {
            const auto kind = event->response_type & ~0x80;
            if (kind != awaited)
                continue;
            if (kind == XCB_UNMAP_NOTIFY &&
                reinterpret_cast<const xcb_unmap_notify_event_t *>(event.get())->window == m_window)
                return true;
            if (kind != XCB_MAP_NOTIFY)
                continue;
            const auto window = reinterpret_cast<const xcb_map_notify_event_t *>(event.get())->window;
            const auto geometry =
                own(xcb_get_geometry_reply(m_connection.get(), xcb_get_geometry(m_connection.get(), window), nullptr));
            if (geometry && geometry->width >= leastWidth) {
                m_window = window;
                return true;
            }
        }
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
        pollfd connection{xcb_get_file_descriptor(m_connection.get()), POLLIN, 0};
        if (left <= 0 || poll(&connection, 1, static_cast<int>(left)) <= 0)
            return false;
    }
}

} // namespace palomet::bench

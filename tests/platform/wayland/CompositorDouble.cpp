#include "tests/platform/wayland/CompositorDouble.h"

#include "platform/wayland/LayerShellProtocol.h"

#include <sys/mman.h>
#include <unistd.h>
#include <wayland-server.h>

#include <cstring>
#include <future>
#include <string_view>

namespace palomet::test {

using namespace std::string_view_literals;

namespace {

using Task = std::packaged_task<void()>;

/// "set_margin 0 0 48 0": a message with what it says in numbers.
std::string inWords(const wl_message &message, const wl_argument *arguments) {
    std::string words = message.name;
    for (const char *kind = message.signature; *kind != 0; ++kind) {
        if (std::strchr("?123456789", *kind) != nullptr)
            continue;
        if (*kind == 'i' || *kind == 'u')
            words += ' ' + std::to_string(arguments->i);
        ++arguments;
    }
    return words;
}

/// A file with the keymap, as a compositor shares it.
int share(const QByteArray &text) {
    const int file = memfd_create("keymap", MFD_CLOEXEC);
    if (write(file, text.constData(), static_cast<std::size_t>(text.size()) + 1) < 0)
        std::abort();
    return file;
}

} // namespace

/// What is called for every message, whatever its object.
struct CompositorDouble::Dispatch {
    static void follow(CompositorDouble &self, wl_resource *resource) {
        wl_resource_set_dispatcher(resource, &handle, &self, &self, nullptr);
    }

    template <const wl_interface *Interface>
    static void bind(wl_client *client, void *data, uint32_t version, uint32_t id) {
        auto &self = *static_cast<CompositorDouble *>(data);
        auto *const resource = wl_resource_create(client, Interface, static_cast<int>(version), id);
        follow(self, resource);
        if (Interface == &wl_seat_interface)
            wl_resource_post_event(resource, WL_SEAT_CAPABILITIES,
                                   self.m_abilities.keymap.isEmpty() ? 0U : uint32_t{WL_SEAT_CAPABILITY_KEYBOARD});
    }

    static wl_resource *make(CompositorDouble &self, wl_resource *maker, const wl_interface &interface, uint32_t id) {
        auto *const made =
            wl_resource_create(wl_resource_get_client(maker), &interface, wl_resource_get_version(maker), id);
        follow(self, made);
        return made;
    }

    static void place(CompositorDouble &self) {
        if (self.m_layer == nullptr)
            return;
        if (self.m_abilities.hasOutput)
            wl_resource_post_event(self.m_layer, 0, 7U, 440U, 40U);
        else
            wl_resource_post_event(self.m_layer, 1);
    }

    static int handle(const void *implementation, void *target, uint32_t /*opcode*/, const wl_message *message,
                      wl_argument *arguments) {
        auto &self = *static_cast<CompositorDouble *>(const_cast<void *>(implementation));
        auto *const resource = static_cast<wl_resource *>(target);
        {
            const std::lock_guard lock(self.m_mutex);
            self.m_requests.push_back(inWords(*message, arguments));
        }
        if (message->name == "create_surface"sv)
            make(self, resource, wl_surface_interface, arguments[0].n);
        else if (message->name == "get_layer_surface"sv)
            self.m_layer = make(self, resource, layershell::surfaceInterface, arguments[0].n);
        else if (message->name == "commit"sv)
            place(self);
        else if (message->name == "get_keyboard"sv)
            giveKeyboard(self, make(self, resource, wl_keyboard_interface, arguments[0].n));
        else if (message->name == "destroy"sv)
            destroy(self, resource);
        return 0;
    }

    static void giveKeyboard(CompositorDouble &self, wl_resource *keyboard) {
        const auto &text = self.m_abilities.keymap;
        const int file = share(text);
        wl_resource_post_event(keyboard, WL_KEYBOARD_KEYMAP, static_cast<uint32_t>(WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1),
                               file, static_cast<uint32_t>(text.size()) + 1);
        close(file);
    }

    static void destroy(CompositorDouble &self, wl_resource *resource) {
        if (self.m_layer == resource)
            self.m_layer = nullptr;
        wl_resource_destroy(resource);
    }

    static int perform(int descriptor, uint32_t /*mask*/, void *data) {
        Task *task = nullptr;
        if (read(descriptor, &task, sizeof task) != sizeof task || task == nullptr) {
            wl_display_terminate(static_cast<wl_display *>(data));
            return 0;
        }
        (*task)();
        return 0;
    }
};

CompositorDouble::CompositorDouble(Abilities abilities)
    : m_abilities(std::move(abilities)) {
    qputenv("XDG_RUNTIME_DIR", m_folder.path().toUtf8());
    qputenv("WAYLAND_DISPLAY", "wayland-double");
    qunsetenv("WAYLAND_SOCKET");
    if (pipe(m_tasks) != 0)
        std::abort();
    m_display = wl_display_create();
    wl_display_add_socket(m_display, "wayland-double");
    wl_global_create(m_display, &wl_compositor_interface, 4, this, &Dispatch::bind<&wl_compositor_interface>);
    wl_global_create(m_display, &wl_seat_interface, 5, this, &Dispatch::bind<&wl_seat_interface>);
    if (m_abilities.hasLayerShell)
        wl_global_create(m_display, &layershell::shellInterface, 1, this, &Dispatch::bind<&layershell::shellInterface>);
    auto *const tasks = wl_event_loop_add_fd(wl_display_get_event_loop(m_display), m_tasks[0], WL_EVENT_READABLE,
                                             &Dispatch::perform, m_display);
    m_thread = std::thread([this, tasks] {
        wl_display_run(m_display);
        wl_display_destroy_clients(m_display);
        wl_event_source_remove(tasks);
        wl_display_destroy(m_display);
    });
}

CompositorDouble::~CompositorDouble() {
    const Task *const end = nullptr;
    if (write(m_tasks[1], &end, sizeof end) != sizeof end)
        std::abort();
    m_thread.join();
    for (const int descriptor : m_tasks)
        close(descriptor);
    qunsetenv("WAYLAND_DISPLAY");
}

void CompositorDouble::onThread(const std::function<void()> &task) {
    Task packaged(task);
    auto *const pointer = &packaged;
    auto done = packaged.get_future();
    if (write(m_tasks[1], &pointer, sizeof pointer) != sizeof pointer)
        std::abort();
    done.wait();
}

std::vector<std::string> CompositorDouble::requests() {
    const std::lock_guard lock(m_mutex);
    return m_requests;
}

void CompositorDouble::closeLayer() {
    onThread([this] {
        wl_resource_post_event(m_layer, 1);
        wl_display_flush_clients(m_display);
    });
}

} // namespace palomet::test

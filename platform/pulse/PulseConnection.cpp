#include "platform/pulse/PulseConnection.h"

#include "platform/pulse/PulseFormat.h"

#include <QMetaObject>

#include <pulse/error.h>

#include <chrono>
#include <utility>

namespace palomet {

namespace {

constexpr std::chrono::milliseconds lastWishLimit{250};

PulseProperties applicationProperties() {
    PulseProperties properties(pa_proplist_new());
    pa_proplist_sets(properties.get(), PA_PROP_APPLICATION_NAME, "Palomet");
    pa_proplist_sets(properties.get(), PA_PROP_APPLICATION_ID, "palomet");
    pa_proplist_sets(properties.get(), PA_PROP_APPLICATION_ICON_NAME, "palomet");
    return properties;
}

} // namespace

PulseConnection::PulseConnection(PulseMainloop &mainloop, const std::string &server, Events events)
    : m_mainloop(mainloop)
    , m_events(std::move(events)) {
    const PulseMainloop::Lock lock(m_mainloop);
    m_context.reset(pa_context_new_with_proplist(m_mainloop.api(), nullptr, applicationProperties().get()));
    if (!m_context) {
        end(PA_ERR_INTERNAL);
        return;
    }
    pa_context_set_state_callback(m_context.get(), &PulseConnection::onState, this);
    if (pa_context_connect(m_context.get(), server.empty() ? nullptr : server.c_str(), PA_CONTEXT_NOAUTOSPAWN,
                           nullptr) < 0)
        end(pa_context_errno(m_context.get()));
}

PulseConnection::~PulseConnection() {
    const auto isAlive = [this] {
        const PulseMainloop::Lock lock(m_mainloop);
        return !m_hasEnded;
    };
    if (m_settingsSent > 0 && isAlive())
        m_settingsTaken.tryAcquire(m_settingsSent, static_cast<int>(lastWishLimit.count()));
    const PulseMainloop::Lock lock(m_mainloop);
    m_askingServer.reset();
    m_askingSources.reset();
    m_context.reset();
}

PulseStream PulseConnection::newStream() const {
    return PulseStream(pa_stream_new(m_context.get(), "Palomet", &pulseFormat, nullptr));
}

// The callee may end this object, and its events with it: a copy of the event travels.
template <typename Action>
void PulseConnection::post(Action action) {
    QMetaObject::invokeMethod(&m_receiver, std::move(action), Qt::QueuedConnection);
}

void PulseConnection::end(int error) {
    if (!std::exchange(m_hasEnded, true))
        post([ended = m_events.ended, error] { ended(error); });
}

void PulseConnection::change() {
    // One on its way stands for all that come before it is heard.
    if (!m_isChangeOnItsWay.exchange(true)) {
        post([this, changed = m_events.changed] {
            m_isChangeOnItsWay = false;
            changed();
        });
    }
}

void PulseConnection::onState(pa_context *context, void *self) {
    auto &connection = *static_cast<PulseConnection *>(self);
    switch (pa_context_get_state(context)) {
    case PA_CONTEXT_UNCONNECTED:
    case PA_CONTEXT_CONNECTING:
    case PA_CONTEXT_AUTHORIZING:
    case PA_CONTEXT_SETTING_NAME:
        break;
    case PA_CONTEXT_READY: {
        pa_context_set_subscribe_callback(context, &PulseConnection::onChange, self);
        constexpr auto mask = static_cast<pa_subscription_mask_t>(
            PA_SUBSCRIPTION_MASK_SOURCE | PA_SUBSCRIPTION_MASK_SERVER | PA_SUBSCRIPTION_MASK_SINK |
            PA_SUBSCRIPTION_MASK_SINK_INPUT | PA_SUBSCRIPTION_MASK_SOURCE_OUTPUT);
        // Nobody waits for the answer; without events the devices stay as they are asked for now.
        if (auto *operation = pa_context_subscribe(context, mask, nullptr, nullptr))
            pa_operation_unref(operation);
        connection.post([ready = connection.m_events.ready] { ready(); });
        break;
    }
    case PA_CONTEXT_FAILED:
    case PA_CONTEXT_TERMINATED:
        connection.end(pa_context_errno(context));
        break;
    }
}

void PulseConnection::onChange(pa_context *, pa_subscription_event_type_t event, std::uint32_t index, void *self) {
    auto &connection = *static_cast<PulseConnection *>(self);
    const auto facility = event & PA_SUBSCRIPTION_EVENT_FACILITY_MASK;
    if (facility == PA_SUBSCRIPTION_EVENT_SOURCE || facility == PA_SUBSCRIPTION_EVENT_SERVER)
        connection.change();
    for (auto *watcher : connection.m_watchers)
        watcher->changed(event, index);
}

void PulseConnection::askForDevices() {
    const PulseMainloop::Lock lock(m_mainloop);
    m_askingServer.reset(pa_context_get_server_info(m_context.get(), &PulseConnection::onServer, this));
}

void PulseConnection::onServer(pa_context *context, const pa_server_info *server, void *self) {
    auto &connection = *static_cast<PulseConnection *>(self);
    if (!server)
        return connection.answer(std::nullopt);
    connection.m_collected = {};
    connection.m_defaultSource = QString::fromUtf8(server->default_source_name);
    connection.m_askingSources.reset(pa_context_get_source_info_list(context, &PulseConnection::onSource, self));
}

void PulseConnection::onSource(pa_context *, const pa_source_info *source, int end, void *self) {
    auto &connection = *static_cast<PulseConnection *>(self);
    if (end < 0)
        return connection.answer(std::nullopt);
    auto &collected = connection.m_collected;
    if (end > 0)
        return connection.answer(std::exchange(collected, {}));
    if (source->monitor_of_sink != PA_INVALID_INDEX)
        return;
    const auto id = QString::fromUtf8(source->name);
    collected.inputs.push_back({id, QString::fromUtf8(source->description)});
    if (id == connection.m_defaultSource)
        collected.defaultInput = id;
}

void PulseConnection::answer(std::optional<PulseDevices> devices) {
    post([told = m_events.devices, devices = std::move(devices)] { told(devices); });
}

void PulseConnection::setDefaultInput(const QString &id) {
    const PulseMainloop::Lock lock(m_mainloop);
    auto *operation = pa_context_set_default_source(
        m_context.get(), id.toUtf8().constData(),
        [](pa_context *, int, void *self) { static_cast<PulseConnection *>(self)->m_settingsTaken.release(); }, this);
    if (!operation)
        return;
    pa_operation_unref(operation);
    ++m_settingsSent;
}

} // namespace palomet

#include "platform/pulse/PulseSoundServer.h"

#include <pulse/error.h>

#include <algorithm>
#include <chrono>
#include <utility>

namespace palomet {

namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

constexpr auto reconnectDelay = 2s;
constexpr auto openingLimit = 5s;
constexpr auto playbackRetryDelay = 2s;
/// PipeWire tells one change in dozens of events.
constexpr auto floodDelay = 100ms;
/// PipeWire tells of a new default before it names it, and then no more.
constexpr auto secondLookDelay = 1s;
/// PipeWire's session manager puts a default into force well after the server took it.
constexpr auto ownDefaultLimit = 2s;

// The log is Portuguese.
Failure noServer() {
    return {u"sem servidor de som"_s};
}
Failure noMicrophone() {
    return {u"sem microfone"_s};
}
Failure accessRefused() {
    return {u"acesso ao microfone recusado"_s};
}

Failure failureOf(PulseCapture::Ending ending, int error) {
    switch (ending) {
    case PulseCapture::Ending::AccessDenied:
        return accessRefused();
    case PulseCapture::Ending::NoMicrophone:
        return noMicrophone();
    case PulseCapture::Ending::Failed:
        break;
    }
    return {QString::fromUtf8(pa_strerror(error))};
}

} // namespace

PulseSoundServer::PulseSoundServer(Scheduler &scheduler, std::string server)
    : m_scheduler(scheduler)
    , m_server(std::move(server)) {}

PulseSoundServer::~PulseSoundServer() = default;

void PulseSoundServer::start(SoundStreams &streams) {
    m_streams = &streams;
    connect();
}

void PulseSoundServer::connect() {
    m_link = Link::Connecting;
    m_isAsking = true;
    m_connection =
        std::make_unique<PulseConnection>(m_mainloop, m_server,
                                          PulseConnection::Events{
                                              .ready = [this] { m_connection->askForDevices(); },
                                              .ended = [this](int error) { connectionEnded(error); },
                                              .changed = [this] { lookAtDevices(); },
                                              .devices = [this](const auto &devices) { devicesTold(devices); },
                                          });
}

void PulseSoundServer::connectionEnded(int error) {
    const bool isLost = std::exchange(m_link, Link::Away) == Link::Ready;
    m_wasAway = true;
    m_isChangeDue = false;
    m_playback.reset();
    m_capture.reset();
    m_connection.reset();
    m_inquiry.reset();
    m_devices.clear();
    m_default = {};
    m_output.reset();
    m_asking.reset();
    m_lookingAgain.reset();
    m_settling.reset();
    m_reopeningPlayback.reset();
    m_reconnecting = m_scheduler.after(reconnectDelay, [this] { connect(); });
    if (isLost)
        m_isPlaybackWanted = false;

    const bool isRefused = error == PA_ERR_ACCESS;
    if (m_opening)
        finishOpening(isRefused ? accessRefused() : noServer());
    if (isRefused)
        reportRefusal();
    if (isLost)
        onServerLost();
}

void PulseSoundServer::lookAtDevices() {
    askForDevicesSoon();
    m_lookingAgain = m_scheduler.after(secondLookDelay, [this] { askForDevicesSoon(); });
}

void PulseSoundServer::askForDevicesSoon() {
    if (m_asking && m_asking->isActive())
        return;
    m_asking = m_scheduler.after(floodDelay, [this] {
        if (m_isAsking)
            return askForDevicesSoon();
        askForDevices();
    });
}

/// By a connection of its own: PipeWire (0.3.65) leaves one that has been there for longer with a default that is none
/// any more, now and then.
void PulseSoundServer::askForDevices() {
    m_isAsking = true;
    const auto told = [this](const std::optional<PulseDevices> &devices) {
        m_inquiry.reset();
        devicesTold(devices);
    };
    m_inquiry = std::make_unique<PulseConnection>(m_mainloop, m_server,
                                                  PulseConnection::Events{
                                                      .ready = [this] { m_inquiry->askForDevices(); },
                                                      .ended = [told](int) { told(std::nullopt); },
                                                      .changed = [] {},
                                                      .devices = told,
                                                  });
}

void PulseSoundServer::devicesTold(const std::optional<PulseDevices> &devices) {
    m_isAsking = false;
    if (!devices)
        return askForDevicesSoon();

    bool isChanged = std::exchange(m_isChangeDue, false) || devices->inputs != m_devices;
    m_devices = devices->inputs;
    isChanged |= m_default.serverNames(devices->defaultInput);
    if (m_default.expected() && !isPresent(*m_default.expected()))
        isChanged |= m_default.settle();

    if (m_link == Link::Connecting) {
        m_link = Link::Ready;
        isChanged = std::exchange(m_wasAway, false);
        onDevicesTold();
        if (m_isPlaybackWanted)
            startPlayback();
        if (m_opening)
            startCapture();
    }
    if (isChanged)
        onConfigurationChange();
}

bool PulseSoundServer::isPresent(const QString &id) const {
    return std::any_of(m_devices.begin(), m_devices.end(), [&](const auto &device) { return device.id == id; });
}

void PulseSoundServer::setDefaultInput(const QString &id) {
    if (m_link != Link::Ready)
        return;
    m_connection->setDefaultInput(id);
    if (!isPresent(id))
        return;
    m_default.expect(id);
    lookAtDevices();
    m_settling = m_scheduler.after(ownDefaultLimit, [this] {
        if (m_default.settle())
            onConfigurationChange();
    });
}

void PulseSoundServer::openCapture(Done done) {
    // The callee may have made another attempt at once.
    do {
        closeCapture();
    } while (m_opening);
    m_opening = std::move(done);
    switch (m_link) {
    case Link::Away:
        failOpening(0ms, noServer());
        break;
    case Link::Connecting:
        failOpening(openingLimit, {u"o servidor de som não respondeu"_s});
        break;
    case Link::Ready:
        failOpening(openingLimit, {u"o servidor de som não respondeu"_s});
        startCapture();
        break;
    }
}

void PulseSoundServer::closeCapture() {
    m_capture.reset();
    if (m_opening)
        finishOpening(Failure{u"tentativa abandonada"_s});
}

/// The attempt fails if nothing has come of it by then.
void PulseSoundServer::failOpening(std::chrono::milliseconds delay, Failure failure) {
    m_openingLimit = m_scheduler.after(delay, [this, failure = std::move(failure)] { finishOpening(failure); });
}

void PulseSoundServer::startCapture() {
    const auto &device = m_default.current();
    if (!device)
        return failOpening(0ms, noMicrophone());
    m_capture = std::make_unique<PulseCapture>(
        *m_connection, *device, *m_streams, m_speakers,
        PulseCapture::Events{
            .open = [this] { captureOpened(); },
            .ended = [this](PulseCapture::Ending ending, int error) { captureEnded(ending, error); },
        });
}

void PulseSoundServer::captureOpened() {
    finishOpening(std::nullopt);
    if (std::exchange(m_isRefused, false))
        onAccessGranted();
}

void PulseSoundServer::reportRefusal() {
    m_isRefused = true;
    onAccessDenied();
}

void PulseSoundServer::captureEnded(PulseCapture::Ending ending, int error) {
    if (m_opening) {
        finishOpening(failureOf(ending, error));
        if (ending == PulseCapture::Ending::AccessDenied)
            reportRefusal();
        return;
    }
    m_capture.reset();
    m_isChangeDue = true;
    askForDevicesSoon();
}

void PulseSoundServer::finishOpening(const std::optional<Failure> &failure) {
    m_openingLimit.reset();
    if (failure)
        m_capture.reset();
    std::exchange(m_opening, nullptr)(failure);
}

void PulseSoundServer::openPlayback() {
    if (std::exchange(m_isPlaybackWanted, true))
        return;
    if (m_link == Link::Ready)
        startPlayback();
}

void PulseSoundServer::closePlayback() {
    m_isPlaybackWanted = false;
    m_reopeningPlayback.reset();
    m_playback.reset();
}

void PulseSoundServer::startPlayback() {
    m_playback = std::make_unique<PulsePlayback>(*m_connection, *m_streams, m_speakers,
                                                 PulsePlayback::Events{
                                                     .playsOn = [this](std::uint32_t output) { playsOn(output); },
                                                     .ended =
                                                         [this] {
                                                             // No output is left. One may come.
                                                             m_playback.reset();
                                                             m_reopeningPlayback = m_scheduler.after(
                                                                 playbackRetryDelay, [this] { startPlayback(); });
                                                         },
                                                 });
}

/// Other speakers are another echo.
void PulseSoundServer::playsOn(std::uint32_t output) {
    const auto before = std::exchange(m_output, output);
    if (!before || before == output)
        return;
    m_isChangeDue = true;
    askForDevicesSoon();
}

} // namespace palomet

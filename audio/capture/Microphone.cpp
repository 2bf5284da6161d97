#include "audio/capture/Microphone.h"

#include <QPointer>

#include <algorithm>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace palomet {

namespace {

constexpr auto retryPeriod = 2000ms;
constexpr int attemptsPerNote = 15;

} // namespace

void Microphone::start(std::optional<QString> device, Ended firstAttemptEnded) {
    m_wantedDevice = std::move(device);
    m_isStarted = true;
    startWithRetry(std::move(firstAttemptEnded));
}

void Microphone::use(std::optional<QString> device, Ended ended) {
    m_wantedDevice = std::move(device);
    configure(Asker::Once, std::move(ended));
}

void Microphone::shutdown() {
    m_mainThread.check();
    m_isShutDown = true;
    const auto abandoned = abandonAttempts();
    m_parts.server.closeCapture();
    onCanceller(nullptr);
    restoreDefaultInput();
    m_parts.reports.onNote(u"áudio: cancelamento de eco desligado na tela Escuta"_s);
    onChange();
    for (const auto &ended : abandoned)
        ended();
}

void Microphone::resume() {
    if (!m_isShutDown)
        return;
    m_isShutDown = false;
    startWithRetry();
}

void Microphone::close() {
    abandonAttempts();
    m_parts.server.closeCapture();
    onCanceller(nullptr);
}

void Microphone::startWithRetry(Ended ended) {
    configure(Asker::Retry, std::move(ended));
}

void Microphone::configure(Asker asker, Ended ended) {
    m_mainThread.check();
    if (m_isShutDown) {
        if (ended)
            ended();
        return;
    }
    m_next.isWanted = true;
    m_next.isRetry |= asker == Asker::Retry;
    if (ended)
        m_next.ended.push_back(std::move(ended));
    if (!m_running.isWanted)
        beginAttempt();
}

void Microphone::beginAttempt() {
    m_running = std::exchange(m_next, {});
    const auto number = ++m_attemptNumber;
    m_parts.server.closeCapture();
    m_switchedTo.reset();
    chooseDevice();
    auto canceller = m_parts.makeEchoCanceller();
    if (!canceller) {
        endAttempt(number, Failure{canceller.reason()});
        return;
    }
    onCanceller(std::move(*canceller));
    m_parts.server.openCapture([this, number, alive = QPointer(&m_alive)](const std::optional<Failure> &failure) {
        if (alive)
            endAttempt(number, failure);
    });
}

void Microphone::endAttempt(quint64 number, const std::optional<Failure> &failure) {
    m_mainThread.check();
    if (!m_running.isWanted || number != m_attemptNumber)
        return;
    const auto attempt = std::exchange(m_running, {});
    // The server may still name the input that was the default before it was asked for another.
    nameDevice(!failure && m_switchedTo ? m_switchedTo->name : defaultInputName());
    onChange();
    if (!failure) {
        m_retry.reset();
        m_retryCount = 0;
        m_parts.reports.onNote(u"áudio: microfone %1 com cancelamento de eco"_s.arg(m_deviceName));
        m_parts.reports.onConfigured(m_deviceName);
    } else if (attempt.isRetry) {
        retryLater(failure->reason);
    }
    for (const auto &ended : attempt.ended)
        ended();
    if (m_next.isWanted && !m_running.isWanted)
        beginAttempt();
}

/// Nothing that is under way or waiting has an effect any more. Returns who waited for it.
std::vector<Microphone::Ended> Microphone::abandonAttempts() {
    m_retry.reset();
    auto waiting = std::exchange(m_running, {}).ended;
    std::ranges::move(std::exchange(m_next, {}).ended, std::back_inserter(waiting));
    return waiting;
}

void Microphone::retryLater(const QString &reason) {
    ++m_retryCount;
    if (m_retryCount == 1 || m_retryCount % attemptsPerNote == 0)
        m_parts.reports.onNote(
            u"áudio: não consegui abrir o microfone com cancelamento de eco (%1); tentando de novo"_s.arg(reason));
    m_retry = m_parts.scheduler.after(retryPeriod, [this] { startWithRetry(); });
}

std::optional<QString> Microphone::pickInput(const std::optional<QString> &wanted) const {
    const auto devices = m_parts.server.inputDevices();
    const auto isWanted = [&](const InputDevice &device) { return wanted && device.name == *wanted; };
    return std::ranges::any_of(devices, isWanted) ? wanted : std::nullopt;
}

/// Some microphones take seconds to open, and whoever asks meanwhile is told which one it is going to be.
void Microphone::chooseDevice() {
    if (!m_switchedTo)
        m_switchedTo = switchDefaultInput();
    nameDevice(m_switchedTo ? m_switchedTo->name : defaultInputName());
}

/// Makes the wanted device the default input, if it is present and is not the default already.
std::optional<InputDevice> Microphone::switchDefaultInput() {
    const auto name = selectsDevice() ? pickInput(m_wantedDevice) : std::nullopt;
    if (!name)
        return {};
    const auto devices = m_parts.server.inputDevices();
    const auto device = std::ranges::find(devices, *name, &InputDevice::name);
    const auto current = m_parts.server.defaultInput();
    if (device == devices.end() || current == device->id)
        return {};
    if (!m_originalDefaultInput)
        m_originalDefaultInput = current;
    m_parts.server.setDefaultInput(device->id);
    m_parts.reports.onNote(
        u"áudio: entrada padrão do macOS agora é %1 (volta à anterior quando o app fecha)"_s.arg(*name));
    return *device;
}

void Microphone::restoreDefaultInput() {
    const auto original = std::exchange(m_originalDefaultInput, {});
    const auto devices = m_parts.server.inputDevices();
    if (original && std::ranges::find(devices, *original, &InputDevice::id) != devices.end())
        m_parts.server.setDefaultInput(*original);
}

QString Microphone::defaultInputName() const {
    const auto devices = m_parts.server.inputDevices();
    const auto id = m_parts.server.defaultInput();
    const auto device = std::ranges::find_if(devices, [&](const InputDevice &each) { return id == each.id; });
    return device != devices.end() ? device->name : m_parts.defaultInputName;
}

void Microphone::nameDevice(const QString &name) {
    if (name == m_deviceName)
        return;
    m_deviceName = name;
    m_parts.reports.onDeviceName(name);
}

/// An attempt that was made before waits with the server, which opens the microphone next.
void Microphone::devicesTold() {
    if (m_running.isWanted)
        chooseDevice();
}

void Microphone::configurationChanged() {
    if (!m_isStarted)
        return;
    m_parts.reports.onNote(u"áudio: dispositivos mudaram; reabrindo"_s);
    configure(Asker::Once);
    onChange();
}

void Microphone::serverLost() {
    endAttempt(m_attemptNumber, Failure{u"o servidor de som caiu"_s});
}

} // namespace palomet

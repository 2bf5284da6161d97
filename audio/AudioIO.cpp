#include "audio/AudioIO.h"

#include <QFile>
#include <QPointer>

#include <algorithm>

using namespace std::chrono_literals;

namespace palomet {

namespace {

constexpr auto retryPeriod = 2000ms;
constexpr int attemptsPerNote = 15;
constexpr int patienceSeconds = 5;

} // namespace

AudioIO::AudioIO(Parts parts)
    : m_server(parts.server)
    , m_scheduler(parts.scheduler)
    , m_makeWakeup(std::move(parts.makeWakeup))
    , m_makeEchoCanceller(std::move(parts.makeEchoCanceller))
    , m_chimeFile(std::move(parts.chimeFile))
    , m_defaultInputName(std::move(parts.defaultInputName))
    , m_player(m_engine.mixer(), std::move(parts.decode)) {
    const auto onMainThread = [this](auto action) {
        QMetaObject::invokeMethod(&m_mainThread, std::move(action), Qt::QueuedConnection);
    };
    m_player.onPlayed = [this](ClipId id) { onPlayed(id); };
    m_player.onFailed = [this, onMainThread](ClipId id, const QString &reason) {
        onMainThread([this, id, reason] { refuse(id, reason); });
    };
    m_player.onQuiet = [this, onMainThread] { onMainThread([this] { updatePlayback(); }); };

    m_server.onDevicesTold = [this] { devicesTold(); };
    m_server.onConfigurationChange = [this] { configurationChanged(); };
    m_server.onServerLost = [this] { serverLost(); };
    m_server.start(m_engine);
}

AudioIO::~AudioIO() {
    close();
}

void AudioIO::start(std::optional<QString> device, Ended firstAttemptEnded) {
    m_wantedDevice = std::move(device);
    m_isStarted = true;
    startWithRetry(std::move(firstAttemptEnded));
}

void AudioIO::use(std::optional<QString> device, Ended ended) {
    m_wantedDevice = std::move(device);
    configure(Asker::Once, std::move(ended));
}

void AudioIO::shutdown() {
    m_isShutDown = true;
    const auto abandoned = abandonAttempts();
    m_server.closeCapture();
    m_engine.setCapture(nullptr);
    restoreDefaultInput();
    onNote(QStringLiteral("áudio: cancelamento de eco desligado na tela Escuta"));
    updatePlayback();
    for (const auto &ended : abandoned)
        ended();
}

void AudioIO::resume() {
    if (!m_isShutDown)
        return;
    m_isShutDown = false;
    startWithRetry();
}

void AudioIO::close() {
    m_server.onDevicesTold = {};
    m_server.onConfigurationChange = {};
    m_server.onServerLost = {};
    abandonAttempts();
    m_speechWatch.reset();
    m_server.closeCapture();
    m_server.closePlayback();
    m_engine.setCapture(nullptr);
}

void AudioIO::startReporting() {
    m_bell = m_makeWakeup([this] { m_player.collect(); });
    m_engine.mixer().setBell(m_bell.get());
}

void AudioIO::stopReporting() {
    m_engine.mixer().setBell(nullptr);
    m_bell.reset();
}

void AudioIO::startWithRetry(Ended ended) {
    configure(Asker::Retry, std::move(ended));
}

void AudioIO::configure(Asker asker, Ended ended) {
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

void AudioIO::beginAttempt() {
    m_running = std::exchange(m_next, {});
    const auto number = ++m_attemptNumber;
    m_server.closeCapture();
    m_switchedTo.reset();
    chooseDevice();
    auto canceller = m_makeEchoCanceller();
    if (!canceller) {
        endAttempt(number, Failure{canceller.reason()});
        return;
    }
    m_engine.setCapture(std::make_unique<CaptureChain>(std::move(*canceller), onPCM));
    m_server.openCapture([this, number, alive = QPointer(&m_mainThread)](const std::optional<Failure> &failure) {
        if (alive)
            endAttempt(number, failure);
    });
}

void AudioIO::endAttempt(quint64 number, const std::optional<Failure> &failure) {
    if (!m_running.isWanted || number != m_attemptNumber)
        return;
    const auto attempt = std::exchange(m_running, {});
    // What the server knows of its default input may lag behind what was asked of it.
    nameDevice(!failure && m_switchedTo ? m_switchedTo->name : defaultInputName());
    updatePlayback();
    if (!failure) {
        m_retry.reset();
        m_retryCount = 0;
        onNote(QStringLiteral("áudio: microfone %1 com cancelamento de eco").arg(m_deviceName));
        onConfigured(m_deviceName);
    } else if (attempt.isRetry) {
        retryLater(failure->reason);
    }
    for (const auto &ended : attempt.ended)
        ended();
    if (m_next.isWanted && !m_running.isWanted)
        beginAttempt();
}

/// Nothing that is under way or waiting has an effect any more. Returns who waited for it.
std::vector<AudioIO::Ended> AudioIO::abandonAttempts() {
    m_retry.reset();
    auto waiting = std::exchange(m_running, {}).ended;
    std::ranges::move(std::exchange(m_next, {}).ended, std::back_inserter(waiting));
    return waiting;
}

void AudioIO::retryLater(const QString &reason) {
    ++m_retryCount;
    if (m_retryCount == 1 || m_retryCount % attemptsPerNote == 0)
        onNote(QStringLiteral("áudio: não consegui abrir o microfone com cancelamento de eco (%1); tentando de novo")
                   .arg(reason));
    m_retry = m_scheduler.after(retryPeriod, [this] { startWithRetry(); });
}

std::optional<QString> AudioIO::pickInput(const std::optional<QString> &wanted) const {
    const auto devices = inputDevices();
    const auto isWanted = [&](const InputDevice &device) { return wanted && device.name == *wanted; };
    return std::ranges::any_of(devices, isWanted) ? wanted : std::nullopt;
}

/// Some microphones take seconds to open, and whoever asks meanwhile is told which one it is going to be.
void AudioIO::chooseDevice() {
    if (!m_switchedTo)
        m_switchedTo = switchDefaultInput();
    nameDevice(m_switchedTo ? m_switchedTo->name : defaultInputName());
}

/// Makes the wanted device the default input, if it is present and is not the default already.
std::optional<InputDevice> AudioIO::switchDefaultInput() {
    const auto name = selectsDevice ? pickInput(m_wantedDevice) : std::nullopt;
    if (!name)
        return {};
    const auto devices = inputDevices();
    const auto device = std::ranges::find(devices, *name, &InputDevice::name);
    const auto current = m_server.defaultInput();
    if (device == devices.end() || current == device->id)
        return {};
    if (!m_originalDefaultInput)
        m_originalDefaultInput = current;
    m_server.setDefaultInput(device->id);
    onNote(
        QStringLiteral("áudio: entrada padrão do macOS agora é %1 (volta à anterior quando o app fecha)").arg(*name));
    return *device;
}

void AudioIO::restoreDefaultInput() {
    const auto original = std::exchange(m_originalDefaultInput, {});
    const auto devices = inputDevices();
    if (original && std::ranges::find(devices, *original, &InputDevice::id) != devices.end())
        m_server.setDefaultInput(*original);
}

QString AudioIO::defaultInputName() const {
    const auto devices = inputDevices();
    const auto id = m_server.defaultInput();
    const auto device = std::ranges::find_if(devices, [&](const InputDevice &each) { return id == each.id; });
    return device != devices.end() ? device->name : m_defaultInputName;
}

std::optional<EchoCancellerState> AudioIO::echoCancellerState() const {
    return m_server.isCaptureOpen() ? m_engine.echoCancellerState() : std::nullopt;
}

void AudioIO::nameDevice(const QString &name) {
    if (name == m_deviceName)
        return;
    m_deviceName = name;
    onDeviceName(name);
}

/// An attempt that was made before waits with the server, which opens the microphone next.
void AudioIO::devicesTold() {
    if (m_running.isWanted)
        chooseDevice();
}

void AudioIO::configurationChanged() {
    if (!m_isStarted)
        return;
    onNote(QStringLiteral("áudio: dispositivos mudaram; reabrindo"));
    configure(Asker::Once);
    updatePlayback();
}

void AudioIO::serverLost() {
    m_player.stop();
    endAttempt(m_attemptNumber, Failure{QStringLiteral("o servidor de som caiu")});
}

void AudioIO::play(ClipId id, QByteArray data, QString extension) {
    m_player.play(id, std::move(data), std::move(extension));
    updatePlayback();
    if (!m_speechWatch)
        watchSpeech();
}

void AudioIO::stop() {
    m_player.stop();
}

void AudioIO::chime() {
    QFile file(m_chimeFile);
    if (file.open(QIODevice::ReadOnly))
        play({-1}, file.readAll(), QStringLiteral("aiff"));
}

/// The speakers stay open as long as the microphone is, so that the echo always comes equally late.
void AudioIO::updatePlayback() {
    if (m_server.isCaptureOpen() || !m_player.isQuiet())
        m_server.openPlayback();
    else if (!m_running.isWanted)
        m_server.closePlayback();
}

/// Gives up on speech that a sound server without life or without speakers is never going to play, so that the backend
/// is not left waiting.
void AudioIO::watchSpeech() {
    m_lastHeard = m_engine.mixer().framesHeard();
    m_silentSeconds = 0;
    m_speechWatch = m_scheduler.every(1s, [this] {
        const auto heard = m_engine.mixer().framesHeard();
        m_silentSeconds = heard == m_lastHeard ? m_silentSeconds + 1 : 0;
        m_lastHeard = heard;
        if (m_player.hasPending() && m_silentSeconds < patienceSeconds)
            return;
        m_speechWatch.reset();
        if (m_player.hasPending()) {
            onNote(QStringLiteral("áudio: o servidor de som não toca nada; falas abandonadas"));
            m_player.stop();
        }
        updatePlayback();
    });
}

void AudioIO::refuse(ClipId id, const QString &reason) {
    onNote(QStringLiteral("áudio: não consegui tocar a fala %1 (%2)").arg(QString::number(id.number), reason));
    onPlayed(id);
    updatePlayback();
}

} // namespace palomet

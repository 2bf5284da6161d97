#include "audio/AudioIO.h"

#include <QFile>

namespace palomet {

using namespace Qt::StringLiterals;

AudioIO::AudioIO(Parts parts)
    : m_server(parts.server)
    , m_makeWakeup(std::move(parts.makeWakeup))
    , m_chimeFile(std::move(parts.chimeFile))
    , m_microphone(
          {parts.server, parts.scheduler, *this, std::move(parts.makeEchoCanceller), std::move(parts.defaultInputName)})
    , m_player(m_engine.mixer(), std::move(parts.decode))
    , m_speechWatch(parts.scheduler, m_engine.mixer(), m_player) {
    m_microphone.onCanceller = [this](std::unique_ptr<EchoCanceller> canceller) {
        m_engine.setCapture(canceller ? std::make_unique<CaptureChain>(std::move(canceller), onPCM) : nullptr);
    };
    m_microphone.onChange = [this] { updatePlayback(); };
    m_microphone.selectsDevice = [this] { return selectsDevice; };

    const auto onMainThread = [this](auto action) {
        QMetaObject::invokeMethod(&m_mainThread, std::move(action), Qt::QueuedConnection);
    };
    m_player.onPlayed = [this](ClipId id) { onPlayed(id); };
    m_player.onFailed = [this, onMainThread](ClipId id, const QString &reason) {
        onMainThread([this, id, reason] { refuse(id, reason); });
    };
    m_player.onQuiet = [this, onMainThread] { onMainThread([this] { updatePlayback(); }); };
    m_speechWatch.onNote = [this](const QString &line) { onNote(line); };
    m_speechWatch.onEnd = [this] { updatePlayback(); };

    m_connections = {
        m_server.onDevicesTold.connect([this] { m_microphone.devicesTold(); }),
        m_server.onConfigurationChange.connect([this] { m_microphone.configurationChanged(); }),
        m_server.onServerLost.connect([this] { serverLost(); }),
    };
    m_server.start(m_engine);
}

AudioIO::~AudioIO() {
    close();
}

void AudioIO::close() {
    m_connections = {};
    m_speechWatch.end();
    m_microphone.close();
    m_server.closePlayback();
}

void AudioIO::startReporting() {
    m_bell = m_makeWakeup([this] { m_player.collect(); });
    m_engine.mixer().setBell(m_bell.get());
}

void AudioIO::stopReporting() {
    m_engine.mixer().setBell(nullptr);
    m_bell.reset();
}

void AudioIO::serverLost() {
    m_player.stop();
    m_microphone.serverLost();
}

void AudioIO::play(ClipId id, QByteArray data, QString extension) {
    m_player.play(id, std::move(data), std::move(extension));
    updatePlayback();
    m_speechWatch.begin();
}

void AudioIO::chime() {
    QFile file(m_chimeFile);
    if (file.open(QIODevice::ReadOnly))
        play({-1}, file.readAll(), u"aiff"_s);
}

void AudioIO::refuse(ClipId id, const QString &reason) {
    onNote(u"áudio: não consegui tocar a fala %1 (%2)"_s.arg(QString::number(id.number), reason));
    onPlayed(id);
    updatePlayback();
}

/// The speakers stay open as long as the microphone is, so that the echo always comes equally late.
void AudioIO::updatePlayback() {
    if (m_server.isCaptureOpen() || !m_player.isQuiet())
        m_server.openPlayback();
    else if (!m_microphone.isOpening())
        m_server.closePlayback();
}

} // namespace palomet

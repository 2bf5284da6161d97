#include "audio/link/AudioLink.h"

using namespace std::chrono_literals;

namespace palomet {

namespace {

template <typename... Handlers>
struct Overloaded : Handlers... {
    using Handlers::operator()...;
};
template <typename... Handlers>
Overloaded(Handlers...) -> Overloaded<Handlers...>;

} // namespace

AudioLink::AudioLink(Parts parts)
    : m_io(std::move(parts.io))
    , m_scheduler(parts.scheduler)
    , m_makeWakeup(std::move(parts.makeWakeup))
    , m_socket(std::move(parts.url), parts.timing, parts.maximumFile, std::move(parts.admit)) {
    m_thread.setObjectName(QStringLiteral("audio link"));
    m_socket.moveToThread(&m_thread);
    m_socket.onMessage = [this](link::Message message, quint64 connection) {
        auto handleIt = [this, message = std::move(message), connection]() mutable {
            handle(std::move(message), connection);
        };
        QMetaObject::invokeMethod(&m_mainThread, std::move(handleIt), Qt::QueuedConnection);
    };

    m_io->onNote = std::move(parts.note);
    m_io->onPCM = [this](PcmSamples samples) { m_socket.offer(samples); };
    // From the link's own thread it goes out at once.
    m_io->onPlayed = [this](ClipId id) { onLinkThread([this, id] { m_socket.sendPlayed(id); }); };
    m_io->onDeviceName = [this](const QString &name) { onLinkThread([this, name] { m_socket.setDeviceName(name); }); };
    m_io->onConfigured = [this](const QString &) { onLinkThread([this] { m_socket.sendDevice(); }); };
}

AudioLink::~AudioLink() {
    m_io->close();
    if (!m_isRunning)
        return;
    // No stream is open, so nobody rings the bells that end here.
    const auto end = [this] {
        m_io->stopReporting();
        m_socket.close();
    };
    onLinkThread(end, Qt::BlockingQueuedConnection);
    m_thread.quit();
    m_thread.wait();
}

void AudioLink::start() {
    if (m_isRunning)
        return;
    m_isRunning = true;
    m_thread.start();
    // The microphone rings bells from its first sample on.
    const auto prepare = [this] {
        m_socket.prepare(m_makeWakeup);
        m_io->startReporting();
    };
    onLinkThread(prepare, Qt::BlockingQueuedConnection);
    m_connectDeadline = m_scheduler.after(1000ms, [this] { connectOnce(); });
    m_io->start({}, [this] { connectOnce(); });
}

void AudioLink::connectOnce() {
    m_connectDeadline.reset();
    if (std::exchange(m_hasConnected, true))
        return;
    onLinkThread([this] { m_socket.connectToBackend(); });
}

void AudioLink::handle(link::Message message, quint64 connection) {
    std::visit(Overloaded{
                   [&](link::Play &play) {
                       m_io->play({play.id, connection}, std::move(play.data), std::move(play.format));
                   },
                   [&](const link::OversizedClip &clip) {
                       m_io->refuse({clip.id, connection}, QStringLiteral("o arquivo é grande demais"));
                   },
                   [this](const link::Stop &) { m_io->stop(); },
                   [this](const link::Enable &enable) { enable.isOn ? m_io->resume() : m_io->shutdown(); },
                   [this](const link::Chime &) { m_io->chime(); },
                   [this](const link::Input &input) {
                       m_io->use(input.device, [this] { onLinkThread([this] { m_socket.sendDevice(); }); });
                   },
               },
               message);
}

} // namespace palomet

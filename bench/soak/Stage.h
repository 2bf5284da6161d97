#pragma once

#include "tests/palomet/BackendAtItsPort.h"
#include "tests/palomet/Desktop.h"
#include "tests/support/PrivateSoundServer.h"

namespace palomet::bench {

/// Ends the bench with what was wrong, unless `holds`.
void require(bool holds, const char *what);

/// Lets time pass, the bench's own event loop running.
void pass(std::chrono::milliseconds duration);

/// The program on a desktop of its own, with a tray, a sound server, a microphone and speakers, and a backend: a
/// process that does nothing but live, and beside it what answers at its port.
class Stage {
public:
    Stage();
    ~Stage();

    void start();
    void openWindow();
    /// As the user does, by a signal; it must end by itself, with its backend.
    void end();

    /// The sound server's devices, which end with it.
    void addDevices();

    /// The backend's processes, from the first to the one that runs.
    [[nodiscard]] QList<qint64> backends() const;
    /// The program as its status command tells it, "waiting".
    [[nodiscard]] QString state() const;
    /// Whether the microphone is heard now, over the link that there is now.
    [[nodiscard]] bool isHeard();
    /// Forgets what was said and asked so far, which the bench would otherwise hold for ever.
    void forget();

    /// Plays a second of speech; its report is awaited.
    void speak();

    [[nodiscard]] qint64 process() const { return m_program.processId(); }

    test::Desktop desktop;
    test::PrivateSoundServer sound{test::PrivateSoundServer::Kind::PulseAudio};
    test::BackendAtItsPort backend;

private:
    [[nodiscard]] QByteArray log() const;

    QProcess m_program;
    QDBusConnection m_bus = desktop.bus.connect();
    QString m_clip;
    int m_clips = 0;
};

} // namespace palomet::bench

#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace palomet::test {

using namespace Qt::StringLiterals;

/// Ends with its owner.
struct EndProcess {
    void operator()(QProcess *process) const;
};
using OwnedProcess = std::unique_ptr<QProcess, EndProcess>;

/// A real sound server of this test's own: its sockets, settings and devices lie in a folder that goes with it, so any
/// number of them run side by side. Its processes end with this object, and with the test program however that ends.
/// Main thread. Whatever cannot be done throws std::runtime_error with what the server said.
class PrivateSoundServer {
public:
    enum class Kind { PulseAudio, PipeWire };
    [[nodiscard]] static bool isInstalled(Kind kind);

    /// Not started yet.
    explicit PrivateSoundServer(Kind kind);
    ~PrivateSoundServer();
    PrivateSoundServer(const PrivateSoundServer &) = delete;
    PrivateSoundServer &operator=(const PrivateSoundServer &) = delete;

    /// Starts it and returns when it answers. It has no devices of its own.
    void start();
    /// Ends it without warning, devices and all. It may be started again at the same address.
    void kill();
    /// Stops it in the middle of whatever it does, and lets it go on.
    void freeze();
    void thaw();

    /// For libpulse, as PULSE_SERVER takes it.
    [[nodiscard]] std::string address() const;
    /// An address at which it turns away every client of this process. PulseAudio only.
    [[nodiscard]] std::string addressForStrangers();
    /// From now on, clients of this process are no strangers there.
    void letStrangersIn() const;
    /// The environment that a client process needs: the address, and a home of its own.
    [[nodiscard]] QProcessEnvironment environment() const;

    /// A channel map: the positions of a device's channels, the first one first.
    static constexpr QStringView stereo = u"front-left,front-right";

    /// Silent speakers that keep time. What is played on them can be recorded from "<name>.monitor". Returns the
    /// module.
    int addSpeakers(const QString &name, QStringView channels = stereo);
    /// A microphone that hears what is played on the sink "<name>-feed". Returns the module that is the microphone
    /// itself.
    int addMicrophone(const QString &name, const QString &description, QStringView channels = stereo);
    /// Plays 48 kHz samples, interleaved, on a sink. They sound until they end, or until the returned player does.
    [[nodiscard]] OwnedProcess play(const QString &sink, const std::vector<float> &samples,
                                    const QString &channels = u"mono"_s) const;
    /// The same with a file of sound.
    [[nodiscard]] OwnedProcess playFile(const QString &sink, const QString &path) const;
    /// From now on the server works so many frames at a time: PipeWire all of it, PulseAudio's `sink` while the
    /// returned player lives, and only where that is less than before.
    [[nodiscard]] OwnedProcess setPeriod(const QString &sink, int frames) const;
    int loadModule(const QStringList &arguments);
    void unloadModule(int module);
    /// Returns when it is in force.
    void setDefaultInput(const QString &source);
    [[nodiscard]] QString defaultInput() const;

    /// Runs pactl and returns what it printed.
    QString control(const QStringList &arguments) const;
    [[nodiscard]] std::optional<QString> tryToControl(const QStringList &arguments) const;

private:
    [[nodiscard]] OwnedProcess launch(const QString &program, const QStringList &arguments) const;
    void serve(const QString &program, const QStringList &arguments);
    void signal(int number) const;
    [[nodiscard]] QString file(const QString &name) const { return m_folder.filePath(name); }
    void write(const QString &name, const QByteArray &content) const;
    [[nodiscard]] std::string said() const;

    Kind m_kind;
    QTemporaryDir m_folder;
    QProcessEnvironment m_environment;
    std::vector<OwnedProcess> m_processes; ///< In the order of their start.
};

} // namespace palomet::test

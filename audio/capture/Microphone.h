#pragma once

#include "audio/SoundServer.h"
#include "audio/echo/EchoCanceller.h"
#include "base/Callback.h"
#include "base/OnThread.h"
#include "base/Scheduler.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace palomet {

/// What is told of the microphone. Main thread only.
struct MicrophoneReports {
    /// A line for the log.
    Callback<void(const QString &line)> onNote;
    /// The microphone was opened; the name of the input device in use.
    Callback<void(const QString &deviceName)> onConfigured;
    /// `deviceName` is another.
    Callback<void(const QString &deviceName)> onDeviceName;
};

/// Opens the microphone: makes the wanted device the default input, gives each opening an echo canceller of its own,
/// and opens again what has failed or changed. Main thread only.
///
/// Opening the microphone takes its time, so one attempt runs at once; what is asked for meanwhile is answered by one
/// more attempt behind it.
class Microphone {
public:
    using EchoCancellerFactory = std::function<Result<std::unique_ptr<EchoCanceller>>()>;
    using Ended = std::function<void()>;

    /// Its parts. The server, the scheduler and those who get its reports outlive it.
    struct Parts {
        SoundServer &server;
        Scheduler &scheduler;
        const MicrophoneReports &reports;
        EchoCancellerFactory makeEchoCanceller;
        QString defaultInputName; ///< The default input's while its own is not known.
    };

    explicit Microphone(Parts parts)
        : m_parts(std::move(parts)) {}

    // Set before anything else is called.
    /// The samples that follow go through this canceller; none: no samples follow. While the microphone is closed.
    Callback<void(std::unique_ptr<EchoCanceller> canceller)> onCanceller;
    /// An attempt has ended or the microphone was released, and nobody else was told yet.
    Callback<void()> onChange;
    /// Whether the desktop's default input may be changed to the wanted device.
    Callback<bool()> selectsDevice;

    /// Opens the microphone, trying every two seconds until it is open, and from then on follows the desktop's changes.
    /// `firstAttemptEnded` is called once.
    void start(std::optional<QString> device, Ended firstAttemptEnded);

    /// Opens the named device, or the desktop's default, once; `ended` is called when that has worked or failed. While
    /// shut down the name is only kept.
    void use(std::optional<QString> device, Ended ended);

    /// Releases the microphone: the user turned echo cancellation off.
    void shutdown();
    /// Undoes `shutdown`.
    void resume();

    /// Closes it for good; whoever still waits for an attempt is not called any more.
    void close();

    /// Puts back the default input that there was before the first change, unless that device has gone.
    void restoreDefaultInput();

    // Told by the server.
    void devicesTold();
    void configurationChanged();
    void serverLost();

    /// The wanted name, if a device that is present has exactly that name.
    [[nodiscard]] std::optional<QString> pickInput(const std::optional<QString> &wanted) const;

    /// The name of the input device in use, or of the one that is being opened, or `defaultInputName`.
    [[nodiscard]] const QString &deviceName() const { return m_deviceName; }
    /// An attempt is under way.
    [[nodiscard]] bool isOpening() const { return m_running.isWanted; }

private:
    enum class Asker { Retry, Once };

    /// An attempt to open the microphone, and what it is made for.
    struct Attempt {
        bool isWanted = false;
        bool isRetry = false; ///< On behalf of `startWithRetry`.
        std::vector<Ended> ended;
    };

    void startWithRetry(Ended ended = {});
    void configure(Asker asker, Ended ended = {});
    void beginAttempt();
    void endAttempt(quint64 number, const std::optional<Failure> &failure);
    std::vector<Ended> abandonAttempts();
    void retryLater(const QString &reason);
    void chooseDevice();
    [[nodiscard]] std::optional<InputDevice> switchDefaultInput();
    [[nodiscard]] QString defaultInputName() const;
    void nameDevice(const QString &name);

    [[no_unique_address]] OnThread m_mainThread;
    const Parts m_parts;
    std::optional<QString> m_wantedDevice;         ///< None is the desktop's default.
    std::optional<QString> m_originalDefaultInput; ///< From before the first change, as the server names it.
    QString m_deviceName;
    bool m_isStarted = false;
    bool m_isShutDown = false;

    Attempt m_running;
    Attempt m_next; ///< Behind the one that is running.
    quint64 m_attemptNumber = 0;
    std::optional<InputDevice> m_switchedTo; ///< By the running attempt.
    int m_retryCount = 0;
    Scheduler::Handle m_retry;
    QObject m_alive; ///< Tells the server's answer whether there is anyone left to hear it.
};

} // namespace palomet

#pragma once

#include "audio/SoundServer.h"
#include "base/Scheduler.h"
#include "base/TrayHost.h"
#include "doctor/Diagnosis.h"
#include "doctor/LevelProbe.h"
#include "model/MicrophonePermission.h"

#include <functional>

namespace palomet {

/// Looks at what the program needs, listens to the microphone for three seconds, and says in a line each what works
/// and what does not. It takes seven seconds at most, changes nothing, and takes nothing from a Palomet that runs. Main
/// thread.
class Doctor {
public:
    struct Parts {
        Scheduler &scheduler;
        SoundServer &sound;
        MicrophonePermission &permission;
        TrayHost &tray;
        /// Everything that is known without waiting; the rest is added.
        Examination known;
        /// The runtime's version, once it has told it.
        std::function<QString()> runtimeVersion;
        /// What the engine understands, once it has told it.
        std::function<std::optional<Examination::Hearing>()> hearing;
        std::function<void(const QString &line)> print;
        /// Shows how loud it is at this moment, in decibels; none: the meter is not needed any more.
        std::function<void(std::optional<int> level)> showLevel;
        /// It is done: 0 when all works, else 1.
        std::function<void(int exitCode)> done;
    };

    /// The parts that are referred to outlive this. `sound` was not started.
    explicit Doctor(Parts parts);
    ~Doctor();

    void start();

private:
    void openMicrophone();
    void lookAgain();
    void report();
    void listen();
    void finish();
    void print(const Finding &finding);

    enum class Capture { NotAsked, Opening, Open, Failed };

    Parts m_parts;
    LevelProbe m_probe;
    Capture m_capture = Capture::NotAsked;
    bool m_isAllWell = true;
    Scheduler::Handle m_glance;
    Scheduler::Handle m_limit;
};

} // namespace palomet

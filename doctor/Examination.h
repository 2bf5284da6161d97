#pragma once

#include "audio/SoundServer.h"
#include "base/DisplayRoute.h"
#include "base/SocketOwner.h"
#include "base/TrayHost.h"
#include "command/RemoteStatus.h"
#include "doctor/PortHolder.h"
#include "model/MicrophonePermission.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace palomet {

/// How loud it was, full scale being 1.
struct SoundLevel {
    double peak = 0;
    double mean = 0; ///< Root mean square.
};

/// The facts that were found out about the program, this machine and this session.
struct Examination {
    enum class Instance {
        Absent,
        Silent, ///< One runs, and does not answer.
        Running,
    };
    enum class HotKeyRoute { X11, Portal, None };
    enum class Key {
        NotTried, ///< There is somebody to ask, or nothing to try.
        Free,
        Taken,
    };

    /// What the engine says that it understands here, and what would make it understand more.
    struct Hearing {
        bool isDeaf = false; ///< It understands nothing.
        QString text;        ///< Empty: it tells nothing.
    };

    bool hasSessionBus = true;
    Instance instance = Instance::Absent;
    RemoteStatus status; ///< Of the running instance.

    std::optional<QString> resources; ///< The resource folder.
    bool hasTexts = false;
    bool hasEngine = false;
    QString runtimeVersion; ///< Empty: it does not run.
    std::optional<Hearing> hearing;
    QString log;
    bool isLogWritable = false;
    QStringList wantedLanguages;
    QString language;
    std::optional<PortHolder> port;
    SocketOwner portOwner = SocketOwner::Unknown;

    bool isSoundServerThere = false;
    std::vector<InputDevice> inputs;
    std::optional<QString> defaultInput; ///< Its id.
    MicrophoneStatus permission = MicrophoneStatus::Authorized;
    bool isCaptureOpen = false;
    QString echoCanceller;   ///< Empty: there is none.
    QString echoMaskProblem; ///< Why its learned mask cannot be read; empty: it can, or would not be used.

    TrayHost::Status tray = TrayHost::Status::NotDetermined;
    HotKeyRoute hotKeyRoute = HotKeyRoute::None;
    bool doesPortalGrant = false; ///< The desktop's portal takes requests for keys.
    QString listenKey;
    Key key = Key::NotTried;
    QString listenKeyHolder; ///< What the desktop does on it, where that can be known; else empty.
    DisplayRoute display;
};

} // namespace palomet

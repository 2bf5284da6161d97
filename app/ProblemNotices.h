#pragma once

#include "app/Notifier.h"
#include "base/Scheduler.h"
#include "ui/shell/Navigation.h"

#include <QObject>

#include <array>
#include <chrono>
#include <functional>

namespace palomet {

class PalometModel;

/// Says by the desktop's notifications what the window would say if it were open: a problem that has lasted for a
/// minute. Each is said once as long as it lasts, and once an hour at most; what is over is taken away again. Main
/// thread only.
class ProblemNotices final : public QObject {
    Q_OBJECT

public:
    struct Parts {
        PalometModel &model;
        Notifier &notifier;
        Scheduler &scheduler;
        std::function<bool()> isPortTaken;   ///< Whether a program that is not of ours has the backend's port.
        std::function<bool()> isWindowShown; ///< Who sees the window sees the problem.
        std::function<void(Pane pane, const QString &activation)> open;
        quint16 port; ///< The backend's.
    };

    static constexpr std::chrono::minutes lastsFor{1};
    static constexpr std::chrono::hours silentFor{1};

    /// What `parts` refers to outlives this object.
    explicit ProblemNotices(Parts parts);
    ~ProblemNotices() override;

    /// From now on; the backend has been launched.
    void start();

    /// Says nothing any more, and takes away what shows.
    void stop();

private:
    /// Also the ids of the notices.
    enum class Kind { NoMicrophone, NoBackend, PortTaken };
    static constexpr std::size_t kinds = 3;

    /// What is wrong for as long as it is.
    struct Trouble {
        bool isThere = false;
        Scheduler::Handle patience; ///< Until it has lasted long enough.
    };

    void update();
    void follow(Trouble &trouble, bool isThere);
    void consider(Trouble &trouble);
    void say(Kind kind);
    void withdrawFor(const Trouble &trouble);
    [[nodiscard]] Kind kindOf(const Trouble &trouble) const;
    [[nodiscard]] Notifier::Notice notice(Kind kind) const;

    const Parts m_parts;
    Trouble m_microphone;
    Trouble m_backend;
    std::array<Scheduler::Handle, kinds> m_silences;
    Connection m_chosen;
};

} // namespace palomet

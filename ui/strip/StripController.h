#pragma once

#include "base/Scheduler.h"
#include "model/PalometModel.h"
#include "ui/strip/StripPanel.h"

#include <QObject>

#include <functional>

namespace palomet {

/// Shows the strip while the voice loop is busy, and hides it five seconds later, so that a short gap does not make it
/// blink and the last words can still be read. Main thread only; all arguments outlive it.
class StripController final : public QObject {
    Q_OBJECT

public:
    StripController(PalometModel &model, StripPanel &panel, Scheduler &scheduler);

    /// Called at every update: says whether the stop key is of use now.
    std::function<void(bool isNeeded)> onEscapeNeeded = [](bool) {};

    /// Decides again. Changes of the snapshot and of the microphone's authorisation call it.
    void update();

private:
    [[nodiscard]] bool isShowing() const;
    void show();
    void hide();

    PalometModel &m_model;
    StripPanel &m_panel;
    Scheduler &m_scheduler;
    Scheduler::Handle m_hideWork;
};

} // namespace palomet

#include "ui/strip/StripController.h"

namespace palomet {

namespace {
constexpr std::chrono::seconds hideDelay{5};
} // namespace

StripController::StripController(PalometModel &model, StripPanel &panel, Scheduler &scheduler)
    : m_model(model)
    , m_panel(panel)
    , m_scheduler(scheduler) {
    connect(&m_model, &PalometModel::snapshotChanged, this, &StripController::update);
    connect(&m_model, &PalometModel::isMicAuthorizedChanged, this, &StripController::update);
}

void StripController::update() {
    const auto state = m_model.state();
    if (isShowing(state))
        show(state);
    else
        hide();
}

bool StripController::isShowing(LoopState state) const {
    switch (state) {
    case LoopState::Listening:
    case LoopState::Hearing:
    case LoopState::Drafting:
    case LoopState::Thinking:
    case LoopState::Speaking:
        return true;
    case LoopState::Muted:
        // Muted for another reason than the user's wish, such as a missing microphone.
        return m_model.snapshot() && !m_model.snapshot()->isMuted;
    case LoopState::Waiting:
    case LoopState::Offline:
        return false;
    }
    return false;
}

void StripController::show(LoopState state) {
    onEscapeNeeded(state == LoopState::Thinking || state == LoopState::Speaking);
    m_hideWork.reset();
    if (!m_panel.isVisible())
        m_panel.orderFront(stripOrigin(m_panel.screens(), m_panel.pointer()));
}

void StripController::hide() {
    onEscapeNeeded(false);
    if (!m_panel.isVisible() || m_hideWork)
        return;
    m_hideWork = m_scheduler.after(hideDelay, [this] {
        m_panel.orderOut();
        m_hideWork.reset();
    });
}

} // namespace palomet

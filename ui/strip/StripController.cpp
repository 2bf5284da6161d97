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
    if (isShowing())
        show();
    else
        hide();
}

bool StripController::isShowing() const {
    switch (m_model.state()) {
    case LoopState::Listening:
    case LoopState::Hearing:
    case LoopState::Drafting:
    case LoopState::Thinking:
    case LoopState::Speaking:
        return true;
    case LoopState::Muted:
        return !m_model.isMutedByUser();
    case LoopState::Waiting:
    case LoopState::Offline:
        return false;
    }
    return false;
}

void StripController::show() {
    onEscapeNeeded(m_model.isStoppable());
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

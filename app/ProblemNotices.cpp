#include "app/ProblemNotices.h"

#include "localization/Localization.h"
#include "model/PalometModel.h"

#include <utility>

namespace palomet {

ProblemNotices::ProblemNotices(Parts parts)
    : m_parts(std::move(parts)) {}

ProblemNotices::~ProblemNotices() = default;

void ProblemNotices::start() {
    m_chosen = m_parts.notifier.onChosen.connect([this](quint32 id, const QString &activation) {
        const bool isMicrophone = static_cast<Kind>(id) == Kind::NoMicrophone;
        m_parts.open(isMicrophone ? Pane::Listening : Pane::Brain, activation);
    });
    connect(&m_parts.model, &PalometModel::snapshotChanged, this, &ProblemNotices::update);
    connect(&m_parts.model, &PalometModel::isMicAuthorizedChanged, this, &ProblemNotices::update);
    update();
}

void ProblemNotices::stop() {
    m_parts.model.disconnect(this);
    m_chosen = {};
    follow(m_microphone, false);
    follow(m_backend, false);
}

void ProblemNotices::update() {
    const auto &model = m_parts.model;
    // Who has muted it misses nothing.
    follow(m_microphone, !model.isMicOn() && !model.isMutedByUser());
    follow(m_backend, model.snapshot() == nullptr);
}

void ProblemNotices::follow(Trouble &trouble, bool isThere) {
    if (std::exchange(trouble.isThere, isThere) == isThere)
        return;
    trouble.patience.reset();
    if (isThere)
        consider(trouble);
    else
        withdrawFor(trouble);
}

void ProblemNotices::consider(Trouble &trouble) {
    trouble.patience = m_parts.scheduler.after(lastsFor, [this, &trouble] {
        if (m_parts.isWindowShown())
            return;
        const auto kind = kindOf(trouble);
        const auto &silence = m_silences.at(static_cast<std::size_t>(kind));
        // Said a while ago: it may be over before it is time to say it again.
        if (silence && silence->isActive())
            consider(trouble);
        else
            say(kind);
    });
}

void ProblemNotices::say(Kind kind) {
    m_silences.at(static_cast<std::size_t>(kind)) = m_parts.scheduler.after(silentFor, [] {});
    m_parts.notifier.show(static_cast<quint32>(kind), notice(kind));
}

void ProblemNotices::withdrawFor(const Trouble &trouble) {
    const bool isMicrophone = &trouble == &m_microphone;
    if (isMicrophone)
        return m_parts.notifier.withdraw(static_cast<quint32>(Kind::NoMicrophone));
    m_parts.notifier.withdraw(static_cast<quint32>(Kind::NoBackend));
    m_parts.notifier.withdraw(static_cast<quint32>(Kind::PortTaken));
}

ProblemNotices::Kind ProblemNotices::kindOf(const Trouble &trouble) const {
    if (&trouble == &m_microphone)
        return Kind::NoMicrophone;
    return m_parts.isPortTaken() ? Kind::PortTaken : Kind::NoBackend;
}

Notifier::Notice ProblemNotices::notice(Kind kind) const {
    const auto button = L("menu.open");
    switch (kind) {
    case Kind::NoMicrophone:
        return {L("notice.microphone"), L("notice.microphone.text"), button};
    case Kind::NoBackend:
        return {L("notice.backend"), L("notice.backend.text"), button};
    case Kind::PortTaken:
        return {L("notice.port"), L("notice.port.text", QString::number(m_parts.port)), button};
    }
    Q_UNREACHABLE();
}

} // namespace palomet

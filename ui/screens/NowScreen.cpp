#include "ui/screens/NowScreen.h"

#include "localization/Localization.h"
#include "model/Format.h"
#include "ui/strip/StripLine.h"

namespace palomet {

NowScreen::NowScreen(PalometModel &model)
    : Screen(model) {
    follow(&PalometModel::snapshotChanged, [this] { updateAll(); });
    follow(&PalometModel::nowChanged, [this] {
        updateShown();
        updateHeard();
        updateClocks();
    });
    follow(&PalometModel::inLevelChanged, [this] {
        if (this->model().state() == LoopState::Hearing)
            Q_EMIT levelChanged();
    });
    follow(&PalometModel::outLevelChanged, [this] {
        if (this->model().state() == LoopState::Speaking)
            Q_EMIT levelChanged();
    });
}

double NowScreen::level() const {
    switch (model().state()) {
    case LoopState::Hearing:
        return model().inLevel();
    case LoopState::Speaking:
        return model().outLevel();
    case LoopState::Waiting:
    case LoopState::Listening:
    case LoopState::Drafting:
    case LoopState::Thinking:
    case LoopState::Muted:
    case LoopState::Offline:
        return 0;
    }
    return 0;
}

void NowScreen::setDraft(const QString &draft) {
    if (m_draft == draft)
        return;
    m_draft = draft;
    Q_EMIT draftChanged();
}

void NowScreen::send() {
    const auto text = m_draft.trimmed();
    if (text.isEmpty() || model().isBusy())
        return;
    model().say(text);
    setDraft({});
}

void NowScreen::updateAll() {
    updateShown();
    m_rows.show(model().snapshot());
    m_draftRows.show(snapshot());
    updateHeard();
    Q_EMIT levelChanged();
}

void NowScreen::updateShown() {
    auto now = shown();
    if (now == m_shown)
        return;
    m_shown = std::move(now);
    Q_EMIT changed();
}

void NowScreen::updateHeard() {
    using Milliseconds = std::chrono::duration<double, std::milli>;
    m_heardRows.show(snapshot(), Milliseconds(model().now().time_since_epoch()).count());
}

void NowScreen::updateClocks() {
    const auto offset = Format::offset(model().now());
    if (m_offset == offset)
        return;
    m_offset = offset;
    m_rows.touch({ConversationRows::Clock});
    m_draftRows.touch({DraftRows::Clock});
    m_heardRows.touch({HeardRows::Clock});
}

QString NowScreen::noteOf(LoopState state) const {
    switch (state) {
    case LoopState::Waiting:
        return L("note.waiting");
    case LoopState::Listening:
    case LoopState::Hearing:
        return L("note.noNameNeeded");
    case LoopState::Drafting:
        return L("note.drafting", actionPhrase(snapshot()));
    case LoopState::Thinking:
    case LoopState::Speaking:
        return L("note.interrupt");
    case LoopState::Muted:
        // Muted by itself, the backend lacks the microphone.
        return snapshot() && snapshot()->isMuted ? L("note.mutedInMenu") : L("note.openSettings");
    case LoopState::Offline:
        return L("note.offline");
    }
    return {};
}

NowScreen::Shown NowScreen::shown() const {
    const auto *now = snapshot();
    const auto state = model().state();
    Shown shown;
    shown.loopState = rawValue(state);
    shown.stateWord = word(state);
    shown.stateNote = noteOf(state);
    if (now) {
        shown.microphone = Format::device(now->device);
        shown.microphoneNote = L("note.microphone");
        shown.cost = Format::usd(now->conversation.costUsd);
    }
    if (now && now->session.startedAt > 0) {
        shown.session = Format::clock(now->session.startedAt);
        shown.sessionNote = L("note.session", Format::since(now->session.startedAt, model().now()));
    } else {
        shown.sessionNote = L("note.session.reopening");
    }
    shown.costNote = L("note.cost", Count{now ? now->conversation.answers : 0});
    showTimings(shown);
    const bool isNamed = now && !now->settings.wakeWords.empty() && !now->settings.wakeWords.front().isEmpty();
    shown.emptyText = L("now.empty", isNamed ? now->settings.wakeWords.front() : QStringLiteral("palomet"));
    if (now && now->memory && now->memory->journalDays > 0)
        shown.rememberedText = L("now.empty.remembers");
    shown.draftNote = L("draft.note", actionPhrase(now));
    return shown;
}

void NowScreen::showTimings(Shown &shown) const {
    const auto *timings = snapshot() && snapshot()->timings ? &*snapshot()->timings : nullptr;
    const bool isSpoken = !timings || timings->isSpoken;
    if (timings) {
        if (timings->transcribeMs)
            shown.transcription = Format::seconds(*timings->transcribeMs);
        shown.brain = Format::seconds(timings->modelMs);
        shown.voice = Format::seconds(timings->voiceMs);
        shown.untilHeard = Format::seconds(timings->totalMs);
    }
    shown.transcriptionNote = isSpoken ? L("now.transcription.note") : L("now.transcription.typed");
    shown.untilHeardNote = isSpoken ? L("now.untilHeard.note") : L("now.untilHeard.typed");
}

} // namespace palomet

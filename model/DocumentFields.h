#pragma once

#include "model/ConversationSummary.h"
#include "model/Options.h"
#include "model/Snapshot.h"

#include <string_view>
#include <tuple>

namespace palomet {

/// A field of a document's object: its key and where it goes. It is optional when the member is.
template <typename Owner, typename Value>
struct Field {
    std::string_view key;
    Value Owner::*member;
};

template <typename Owner, typename Value>
Field(std::string_view, Value Owner::*) -> Field<Owner, Value>;

/// The fields of each kind of object that a document holds, `DocumentFields<T>::all`.
template <typename Owner>
struct DocumentFields;

template <>
struct DocumentFields<Snapshot> {
    static constexpr std::tuple all{
        Field{"state", &Snapshot::state},         Field{"isMuted", &Snapshot::isMuted},
        Field{"isMicDead", &Snapshot::isMicDead}, Field{"isEchoCancelled", &Snapshot::isEchoCancelled},
        Field{"device", &Snapshot::device},       Field{"conversation", &Snapshot::conversation},
        Field{"session", &Snapshot::session},     Field{"heard", &Snapshot::heard},
        Field{"draft", &Snapshot::draft},         Field{"settings", &Snapshot::settings},
        Field{"timings", &Snapshot::timings},     Field{"memory", &Snapshot::memory},
    };
};

template <>
struct DocumentFields<Snapshot::Conversation> {
    static constexpr std::tuple all{
        Field{"startedAt", &Snapshot::Conversation::startedAt},
        Field{"rows", &Snapshot::Conversation::rows},
        Field{"costUsd", &Snapshot::Conversation::costUsd},
        Field{"answers", &Snapshot::Conversation::answers},
    };
};

template <>
struct DocumentFields<Snapshot::Row> {
    static constexpr std::tuple all{
        Field{"role", &Snapshot::Row::role},     Field{"text", &Snapshot::Row::text},
        Field{"at", &Snapshot::Row::at},         Field{"durationMs", &Snapshot::Row::durationMs},
        Field{"isOpen", &Snapshot::Row::isOpen},
    };
};

template <>
struct DocumentFields<Snapshot::Session> {
    static constexpr std::tuple all{
        Field{"model", &Snapshot::Session::model},
        Field{"claudePath", &Snapshot::Session::claudePath},
        Field{"claudeVersion", &Snapshot::Session::claudeVersion},
        Field{"startedAt", &Snapshot::Session::startedAt},
        Field{"isReady", &Snapshot::Session::isReady},
    };
};

template <>
struct DocumentFields<Snapshot::Settings> {
    static constexpr std::tuple all{
        Field{"inputDevice", &Snapshot::Settings::inputDevice},
        Field{"wakeWords", &Snapshot::Settings::wakeWords},
        Field{"inputPreference", &Snapshot::Settings::inputPreference},
        Field{"whisperModel", &Snapshot::Settings::whisperModel},
        Field{"followUpMs", &Snapshot::Settings::followUpMs},
        Field{"summonMs", &Snapshot::Settings::summonMs},
        Field{"echoGuardMs", &Snapshot::Settings::echoGuardMs},
        Field{"endSilenceMs", &Snapshot::Settings::endSilenceMs},
        Field{"isDraftOn", &Snapshot::Settings::isDraftOn},
        Field{"isEchoCancelOn", &Snapshot::Settings::isEchoCancelOn},
        Field{"isDirectedOn", &Snapshot::Settings::isDirectedOn},
        Field{"actionPhrases", &Snapshot::Settings::actionPhrases},
        Field{"draftMaxAgeMs", &Snapshot::Settings::draftMaxAgeMs},
        Field{"voiceId", &Snapshot::Settings::voiceId},
        Field{"voiceName", &Snapshot::Settings::voiceName},
        Field{"voiceSpeed", &Snapshot::Settings::voiceSpeed},
        Field{"fishModel", &Snapshot::Settings::fishModel},
        Field{"fallbackVoice", &Snapshot::Settings::fallbackVoice},
        Field{"brainModel", &Snapshot::Settings::brainModel},
        Field{"claudePath", &Snapshot::Settings::claudePath},
        Field{"folders", &Snapshot::Settings::folders},
        Field{"confirmActions", &Snapshot::Settings::confirmActions},
        Field{"workingFolder", &Snapshot::Settings::workingFolder},
    };
};

template <>
struct DocumentFields<Snapshot::Heard> {
    static constexpr std::tuple all{
        Field{"at", &Snapshot::Heard::at},
        Field{"text", &Snapshot::Heard::text},
        Field{"action", &Snapshot::Heard::action},
        Field{"reason", &Snapshot::Heard::reason},
    };
};

template <>
struct DocumentFields<Snapshot::DraftEntry> {
    static constexpr std::tuple all{
        Field{"at", &Snapshot::DraftEntry::at},
        Field{"text", &Snapshot::DraftEntry::text},
    };
};

template <>
struct DocumentFields<Snapshot::Timings> {
    static constexpr std::tuple all{
        Field{"transcribeMs", &Snapshot::Timings::transcribeMs}, Field{"modelMs", &Snapshot::Timings::modelMs},
        Field{"voiceMs", &Snapshot::Timings::voiceMs},           Field{"totalMs", &Snapshot::Timings::totalMs},
        Field{"isSpoken", &Snapshot::Timings::isSpoken},
    };
};

template <>
struct DocumentFields<Snapshot::Memory> {
    static constexpr std::tuple all{
        Field{"isResumed", &Snapshot::Memory::isResumed},
        Field{"journalDays", &Snapshot::Memory::journalDays},
    };
};

template <>
struct DocumentFields<ConversationSummary> {
    static constexpr std::tuple all{
        Field{"conversationId", &ConversationSummary::conversationId},
        Field{"startedAt", &ConversationSummary::startedAt},
        Field{"firstQuestion", &ConversationSummary::firstQuestion},
        Field{"answers", &ConversationSummary::answers},
        Field{"costUsd", &ConversationSummary::costUsd},
    };
};

template <>
struct DocumentFields<Options> {
    static constexpr std::tuple all{
        Field{"inputs", &Options::inputs},
        Field{"models", &Options::models},
        Field{"whisperModels", &Options::whisperModels},
        Field{"fishModels", &Options::fishModels},
        Field{"macVoices", &Options::macVoices},
        Field{"claudePaths", &Options::claudePaths},
        Field{"confirmActions", &Options::confirmActions},
    };
};

template <>
struct DocumentFields<Options::ClaudePath> {
    static constexpr std::tuple all{
        Field{"path", &Options::ClaudePath::path},
        Field{"version", &Options::ClaudePath::version},
    };
};

template <>
struct DocumentFields<Options::Action> {
    static constexpr std::tuple all{
        Field{"id", &Options::Action::id},
        Field{"label", &Options::Action::label},
    };
};

} // namespace palomet

#pragma once

#include <QString>

#include <optional>
#include <vector>

namespace palomet {

/// The whole live state of the voice backend, as its `state` document gives it. A plain value: it is decoded, handed
/// around and compared, never encoded. Instants are milliseconds since the Unix epoch, durations (`…Ms`)
/// milliseconds, money (`…Usd`) US dollars. What is optional may be missing from the document; all else is always
/// there.
struct Snapshot {
    /// One turn of the conversation.
    struct Row {
        QString role; ///< Who spoke: "user", "tool", or the agent's word for itself.
        QString text;
        double at = 0;
        std::optional<double> durationMs;
        std::optional<bool> isOpen; ///< The turn is still being produced.

        /// The key of this row in a list: the time and the role, "5.0-user". Rows of one instant and role share it.
        [[nodiscard]] QString id() const;
        bool operator==(const Row &) const = default;
    };

    struct Conversation {
        double startedAt = 0;
        std::vector<Row> rows; ///< Oldest first.
        double costUsd = 0;
        qint64 answers = 0;

        bool operator==(const Conversation &) const = default;
    };

    /// The session with the language model.
    struct Session {
        QString model;
        QString claudePath;
        QString claudeVersion;
        double startedAt = 0;
        bool isReady = false;

        bool operator==(const Session &) const = default;
    };

    /// One recent utterance.
    struct Heard {
        double at = 0;
        QString text;
        QString action; ///< What the backend did with it.
        std::optional<QString> reason;

        /// The time and the text, "5.0-hello".
        [[nodiscard]] QString id() const;
        bool operator==(const Heard &) const = default;
    };

    /// One piece of the dictation collected so far.
    struct DraftEntry {
        double at = 0;
        QString text;

        /// The time alone, "5.0": entries of one instant share it.
        [[nodiscard]] QString id() const;
        bool operator==(const DraftEntry &) const = default;
    };

    /// The backend's settings; the names are the keys of the settings command.
    struct Settings {
        std::optional<QString> inputDevice; ///< None: the system's default.
        std::vector<QString> wakeWords;
        std::vector<QString> inputPreference; ///< Input device names, most wanted first.
        QString whisperModel;
        double followUpMs = 0;
        double summonMs = 0;
        double echoGuardMs = 0;
        std::optional<double> endSilenceMs;
        std::optional<bool> isDraftOn;
        std::optional<bool> isEchoCancelOn;
        std::optional<bool> isDirectedOn;
        std::optional<std::vector<QString>> actionPhrases;
        std::optional<double> draftMaxAgeMs;
        QString voiceId;
        QString voiceName;
        double voiceSpeed = 0;
        QString fishModel;
        QString fallbackVoice;
        QString brainModel;
        std::optional<QString> claudePath; ///< None: chosen by the backend.
        std::vector<QString> folders;
        std::vector<QString> confirmActions;
        QString workingFolder;

        bool operator==(const Settings &) const = default;
    };

    /// The parts of the time that the last answer took.
    struct Timings {
        std::optional<double> transcribeMs;
        double modelMs = 0;
        double voiceMs = 0;
        double totalMs = 0;
        bool isSpoken = false;

        bool operator==(const Timings &) const = default;
    };

    struct Memory {
        bool isResumed = false;
        qint64 journalDays = 0;

        bool operator==(const Memory &) const = default;
    };

    QString state; ///< The raw value of a `LoopState`, or a word that this program does not know.
    bool isMuted = false;
    bool isMicDead = false; ///< The backend hears no signal from the microphone.
    std::optional<bool> isEchoCancelled;
    QString device; ///< Name of the input device in use.
    Conversation conversation;
    Session session;
    std::optional<std::vector<Heard>> heard;
    std::optional<std::vector<DraftEntry>> draft;
    Settings settings;
    std::optional<Timings> timings;
    std::optional<Memory> memory;

    bool operator==(const Snapshot &) const = default;
};

} // namespace palomet

#pragma once

#include "model/DocumentFetcher.h"
#include "model/Documents.h"
#include "model/EventStream.h"
#include "model/HttpClient.h"
#include "model/LoopState.h"
#include "model/MicrophonePermission.h"

#include <QJsonValue>
#include <QObject>

namespace palomet {

/// The backend's base address; every endpoint is this with one path appended.
[[nodiscard]] QUrl hudBase();

/// The program's one picture of the voice backend, and the way to change it. It follows the backend's event stream,
/// fetches the state document when an event speaks of a change, and publishes what every view shows; commands go to the
/// backend, and what became of them is seen in the next state.
///
/// Everything is on the main thread, and nothing here blocks it. Failures are not reported: a backend that cannot be
/// reached or understood shows as no snapshot. Each published field has a signal, given after the change;
/// `spokenLineChanged` also when the same line is spoken again.
class PalometModel final : public QObject {
    Q_OBJECT
    Q_PROPERTY(double inLevel READ inLevel NOTIFY inLevelChanged)
    Q_PROPERTY(double outLevel READ outLevel NOTIFY outLevelChanged)
    Q_PROPERTY(QString spokenLine READ spokenLine NOTIFY spokenLineChanged)
    Q_PROPERTY(bool isMicAuthorized READ isMicAuthorized NOTIFY isMicAuthorizedChanged)

public:
    using Time = std::chrono::system_clock::time_point;
    using SnapshotPointer = std::shared_ptr<const Snapshot>;

    /// Quiet until `start`. `scheduler` and `permission` outlive the model. With an empty address there is no backend
    /// to follow: what is asked reaches nobody, and the model keeps what it is given.
    PalometModel(Scheduler &scheduler, const MicrophonePermission &permission, const QUrl &base = hudBase(),
                 const AdmitPeer &admit = admitEverybody);
    ~PalometModel() override;

    /// Begins to follow the backend, until the model ends. Called once.
    void start();

    /// Asks for a new state document in a tenth of a second; what is asked until then is one and the same.
    void refresh();
    void loadHistory();
    void loadOptions();

    // As the backend said last.

    /// Null while the backend is unreachable or unreadable. Whoever holds it may keep it: it never changes.
    [[nodiscard]] const SnapshotPointer &snapshot() const { return m_snapshot; }
    [[nodiscard]] const std::vector<ConversationSummary> &history() const { return m_history; }
    [[nodiscard]] const std::optional<Options> &options() const { return m_options; }
    /// The setting whose change is on its way to the backend.
    [[nodiscard]] const std::optional<QString> &applying() const { return m_applying; }
    [[nodiscard]] double inLevel() const { return m_inLevel; }
    [[nodiscard]] double outLevel() const { return m_outLevel; }
    [[nodiscard]] const QString &spokenLine() const { return m_spokenLine; }

    // As this machine says.

    [[nodiscard]] bool isMicAuthorized() const { return m_isMicAuthorized; }
    /// Why the listen key does not work, in the user's words.
    [[nodiscard]] const std::optional<QString> &hotKeyProblem() const { return m_hotKeyProblem; }
    /// The time of day, a second at a time, so that what is shown relative to it moves on.
    [[nodiscard]] Time now() const { return m_now; }

    // Derived from both; it changes with the snapshot and the authorisation.

    [[nodiscard]] LoopState state() const;
    /// The microphone counts as on while there is no snapshot: only a backend that hears nothing turns it off.
    [[nodiscard]] bool isMicOn() const;

    void setHotKeyProblem(std::optional<QString> problem);

    // Shows something else than a backend's documents, as the preview does.

    void setSnapshot(SnapshotPointer snapshot);
    void setHistory(std::vector<ConversationSummary> history);
    void setOptions(std::optional<Options> options);
    void setMicAuthorized(bool isAuthorized);

    // Commands. Each is sent at once, and once; when it has ended, whatever came of it, the state is fetched. While the
    // model is busy, none is sent.

    /// So many commands are on their way that there can be no other.
    [[nodiscard]] bool isBusy() const { return m_http.isBusy(); }

    Q_INVOKABLE void listen();
    Q_INVOKABLE void stop();
    Q_INVOKABLE void toggleMute();
    Q_INVOKABLE void newConversation();
    Q_INVOKABLE void sample();
    Q_INVOKABLE void say(const QString &text);
    Q_INVOKABLE void act();
    Q_INVOKABLE void clearDraft();

    /// Changes a setting; `key` is a name of `Snapshot::Settings`. `applying` is that key until the first of the
    /// changes on their way has ended.
    Q_INVOKABLE void set(const QString &key, const QJsonValue &value);

Q_SIGNALS:
    void snapshotChanged();
    void historyChanged();
    void optionsChanged();
    void applyingChanged();
    /// A change of that setting has ended, whatever came of it, and so has the fetch of the state that followed: what
    /// is published now is what the backend made of it. At once for one that was not sent.
    void changeSettled(const QString &key);
    void inLevelChanged();
    void outLevelChanged();
    void spokenLineChanged();
    void isMicAuthorizedChanged();
    void hotKeyProblemChanged();
    void nowChanged();

private:
    void tick();
    void streamHasGap();
    void handle(QByteArrayView event, QByteArrayView data);
    void settleChanges();
    void post(const QString &path, const std::optional<QByteArray> &body = std::nullopt);
    template <typename Value>
    void change(Value &field, Value value, void (PalometModel::*changed)());

    const bool m_hasBackend;
    Scheduler &m_scheduler;
    const MicrophonePermission &m_permission;

    SnapshotPointer m_snapshot;
    std::vector<ConversationSummary> m_history;
    std::optional<Options> m_options;
    std::optional<QString> m_applying;
    double m_inLevel = 0;
    double m_outLevel = 0;
    QString m_spokenLine;
    bool m_isMicAuthorized;
    std::optional<QString> m_hotKeyProblem;
    Time m_now;

    /// A change that has ended, and the fetch that was begun after it, once it was.
    struct EndedChange {
        QString key;
        std::optional<quint64> fetch;
    };
    std::vector<EndedChange> m_endedChanges;

    Scheduler::Handle m_pendingRefresh;
    Scheduler::Handle m_clock;

    HttpClient m_http;
    HttpClient m_settingsHttp;
    HttpClient m_streamHttp;
    EventStream m_events;
    QThreadPool m_decoder;
    DocumentFetcher<Snapshot> m_stateFetcher;
    DocumentFetcher<std::vector<ConversationSummary>> m_historyFetcher;
    DocumentFetcher<Options> m_optionsFetcher;
};

} // namespace palomet

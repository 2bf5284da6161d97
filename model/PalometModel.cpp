#include "model/PalometModel.h"

#include "base/BackendPort.h"
#include "model/CommandBody.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>

namespace palomet {

namespace {

using namespace std::chrono_literals;

constexpr auto clockPeriod = 1s;
/// Gathers the burst of events that comes with each change of phase.
constexpr auto refreshDelay = 100ms;
constexpr auto stateTimeout = 2s;
constexpr auto documentTimeout = 60s;
constexpr auto commandTimeout = 3s;
/// A setting may make the backend load a model or reopen a microphone.
constexpr auto settingTimeout = 60s;

/// A level as events carry it, a decimal number; 0 for everything else.
double levelFrom(QByteArrayView data) {
    if (data.size() > 1 && data.front() == '+' && data[1] != '-')
        data = data.sliced(1);
    double level = 0;
    const auto [end, error] = std::from_chars(data.begin(), data.end(), level);
    return error == std::errc() && end == data.end() && std::isfinite(level) ? level : 0;
}

} // namespace

QUrl hudBase() {
    static const QUrl base(QStringLiteral("http://127.0.0.1:%1").arg(backendPort));
    return base;
}

PalometModel::PalometModel(Scheduler &scheduler, const MicrophonePermission &permission, const QUrl &base,
                           const AdmitPeer &admit)
    : m_hasBackend(!base.isEmpty())
    , m_scheduler(scheduler)
    , m_permission(permission)
    , m_isMicAuthorized(permission.status() == MicrophoneStatus::Authorized)
    , m_now(scheduler.now())
    , m_http(base, scheduler, admit)
    , m_settingsHttp(base, scheduler, admit)
    , m_streamHttp(base, scheduler, admit)
    , m_events(
          m_streamHttp, scheduler, [this](auto event, auto data) { handle(event, data); }, [this] { streamHasGap(); })
    , m_stateFetcher(m_http, m_decoder, QStringLiteral("state"), stateTimeout, decodeSnapshot,
                     [this](auto read) {
                         setSnapshot(read ? std::make_shared<const Snapshot>(std::move(*read)) : nullptr);
                         settleChanges();
                     })
    , m_historyFetcher(m_http, m_decoder, QStringLiteral("history"), documentTimeout, decodeHistory,
                       [this](auto read) {
                           if (read)
                               setHistory(std::move(*read));
                       })
    , m_optionsFetcher(m_http, m_decoder, QStringLiteral("options"), documentTimeout, decodeOptions, [this](auto read) {
        if (read)
            setOptions(std::move(*read));
    }) {
    // One thread: documents are decoded, and published, in the order in which they came.
    m_decoder.setMaxThreadCount(1);
}

PalometModel::~PalometModel() {
    m_decoder.waitForDone();
}

void PalometModel::start() {
    m_events.start();
    m_clock = m_scheduler.every(clockPeriod, [this] { tick(); });
    refresh();
    loadHistory();
    loadOptions();
}

void PalometModel::tick() {
    m_now = m_scheduler.now();
    Q_EMIT nowChanged();
    setMicAuthorized(m_permission.status() == MicrophoneStatus::Authorized);
    if (!m_snapshot)
        refresh();
}

void PalometModel::refresh() {
    if (m_pendingRefresh || !m_hasBackend)
        return;
    m_pendingRefresh = m_scheduler.after(refreshDelay, [this] {
        m_pendingRefresh.reset();
        const auto number = m_stateFetcher.fetch();
        for (auto &change : m_endedChanges)
            change.fetch = change.fetch.value_or(number);
    });
}

void PalometModel::settleChanges() {
    const auto isSettled = [this](const EndedChange &change) {
        return change.fetch && *change.fetch <= m_stateFetcher.lastPublished();
    };
    std::vector<EndedChange> settled;
    std::copy_if(m_endedChanges.begin(), m_endedChanges.end(), std::back_inserter(settled), isSettled);
    std::erase_if(m_endedChanges, isSettled);
    for (const auto &change : settled)
        Q_EMIT changeSettled(change.key);
}

void PalometModel::streamHasGap() {
    // While there is none, the clock asks.
    if (m_snapshot)
        refresh();
}

void PalometModel::loadHistory() {
    m_historyFetcher.fetch();
}

void PalometModel::loadOptions() {
    m_optionsFetcher.fetch();
}

void PalometModel::handle(QByteArrayView event, QByteArrayView data) {
    if (event == QByteArrayView("level")) {
        change(m_inLevel, levelFrom(data), &PalometModel::inLevelChanged);
        return;
    }
    if (event == QByteArrayView("outLevel")) {
        change(m_outLevel, levelFrom(data), &PalometModel::outLevelChanged);
        return;
    }
    if (event == QByteArrayView("spoken")) {
        if (auto line = decodeText(data))
            m_spokenLine = std::move(*line);
        Q_EMIT spokenLineChanged();
    }
    refresh();
    if (event == QByteArrayView("turnEnd"))
        loadHistory();
}

LoopState PalometModel::state() const {
    return m_snapshot ? loopStateFrom(m_snapshot->state).value_or(LoopState::Offline) : LoopState::Offline;
}

bool PalometModel::isMicOn() const {
    return m_isMicAuthorized && !(m_snapshot && m_snapshot->isMicDead);
}

void PalometModel::setSnapshot(SnapshotPointer snapshot) {
    if (!snapshot && !m_snapshot)
        return;
    m_snapshot.swap(snapshot);
    Q_EMIT snapshotChanged();
    // To free a conversation without end takes a while, too.
    m_decoder.start([old = std::move(snapshot)] {});
}

void PalometModel::setHistory(std::vector<ConversationSummary> history) {
    m_history = std::move(history);
    Q_EMIT historyChanged();
}

void PalometModel::setOptions(std::optional<Options> options) {
    m_options = std::move(options);
    Q_EMIT optionsChanged();
}

void PalometModel::setMicAuthorized(bool isAuthorized) {
    change(m_isMicAuthorized, isAuthorized, &PalometModel::isMicAuthorizedChanged);
}

void PalometModel::setHotKeyProblem(std::optional<QString> problem) {
    change(m_hotKeyProblem, std::move(problem), &PalometModel::hotKeyProblemChanged);
}

template <typename Value>
void PalometModel::change(Value &field, Value value, void (PalometModel::*changed)()) {
    if (field == value)
        return;
    field = std::move(value);
    Q_EMIT(this->*changed)();
}

void PalometModel::listen() {
    post(QStringLiteral("listen"));
}

void PalometModel::stop() {
    post(QStringLiteral("stop"));
}

void PalometModel::toggleMute() {
    post(QStringLiteral("mute"));
}

void PalometModel::newConversation() {
    post(QStringLiteral("new"));
}

void PalometModel::sample() {
    post(QStringLiteral("sample"));
}

void PalometModel::say(const QString &text) {
    post(QStringLiteral("say"), commandBody(QStringLiteral("text"), text));
}

void PalometModel::act() {
    post(QStringLiteral("act"));
}

void PalometModel::clearDraft() {
    post(QStringLiteral("draft/clear"));
}

void PalometModel::post(const QString &path, const std::optional<QByteArray> &body) {
    m_http.post(path, body, commandTimeout, [this] { refresh(); });
}

void PalometModel::set(const QString &key, const QJsonValue &value) {
    const bool isSent =
        m_settingsHttp.post(QStringLiteral("settings"), commandBody(key, value), settingTimeout, [this, key] {
            change<std::optional<QString>>(m_applying, std::nullopt, &PalometModel::applyingChanged);
            // No state follows when there is no backend.
            if (!m_hasBackend) {
                Q_EMIT changeSettled(key);
                return;
            }
            m_endedChanges.push_back({key, std::nullopt});
            refresh();
        });
    if (isSent)
        change<std::optional<QString>>(m_applying, key, &PalometModel::applyingChanged);
    else
        Q_EMIT changeSettled(key);
}

} // namespace palomet

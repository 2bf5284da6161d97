#include "tests/ui/pictures/Studio.h"

#include "localization/Localization.h"
#include "model/Format.h"
#include "tests/support/ScriptedBackend.h"
#include "tests/support/Windows.h"
#include "ui/preview/Preview.h"
#include "ui/strip/StripWindow.h"

#include <QApplication>
#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>

#include <cstdio>

namespace palomet::test {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// A day at 14:49.
std::chrono::system_clock::time_point hour() {
    const QDateTime time({2026, 11, 21}, {14, 49, 10});
    return std::chrono::system_clock::time_point(std::chrono::milliseconds(time.toMSecsSinceEpoch()));
}

} // namespace

void Studio::settle() {
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < 300)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
}

Studio::Studio(const QString &resources, QString folder)
    : m_resources(resources)
    , m_folder(std::move(folder))
    , m_settings(m_home.filePath(u"palomet.conf"_s), QSettings::IniFormat)
    , m_shortcuts(m_settings)
    , m_ui(resources) {
    m_scheduler.setNow(hour());
    m_model = std::make_unique<PalometModel>(m_scheduler, m_permission, QUrl());
    m_ui.setMotionReduced(true);
}

Studio::~Studio() = default;

QString Studio::path(const QString &name) const {
    const auto scale = qEnvironmentVariable("QT_SCALE_FACTOR", u"1"_s);
    return m_folder + u'/' + name + (scale == u"1" ? QString() : u'@' + scale) + u".png"_s;
}

void Studio::take(QQuickWindow &window, const QString &name) {
    settle();
    QDir().mkpath(QFileInfo(path(name)).path());
    const auto taken = preview::capture(window, path(name));
    if (!taken)
        std::fprintf(stderr, "%s\n", taken.reason().toLocal8Bit().constData());
}

void Studio::fill() {
    preview::fill(*m_model);
}

void Studio::empty() {
    auto document = QJsonDocument::fromJson(preview::documents(0).state).object();
    auto conversation = document[u"conversation"_s].toObject();
    conversation[u"rows"_s] = QJsonArray();
    conversation[u"costUsd"_s] = 0;
    conversation[u"answers"_s] = 0;
    document[u"conversation"_s] = conversation;
    for (const auto &list : {u"heard"_s, u"draft"_s})
        document[list] = QJsonArray();
    for (const auto &part : {u"timings"_s, u"memory"_s})
        document.remove(part);
    auto settings = document[u"settings"_s].toObject();
    for (const auto &list : {u"folders"_s, u"confirmActions"_s})
        settings[list] = QJsonArray();
    document[u"settings"_s] = settings;
    if (auto snapshot = decodeSnapshot(QJsonDocument(document).toJson()))
        m_model->setSnapshot(std::make_shared<const Snapshot>(std::move(*snapshot)));
    m_model->setHistory({});
    m_model->setOptions(std::nullopt);
}

void Studio::takeAll(const QString &language) {
    localization::load(m_resources, {language});
    format::load({.numbers = language, .dates = language, .timeZone = {}, .clock = &hour});
    takePanes(language);
    takeRaised(language);
    takeConversations(language);
    takeSelection(language);
    takeFolderDialog(language);
    takeRecorder(language);
    takeStrip(language);
}

void Studio::takePanes(const QString &language) {
    AppView app(*m_model, m_navigation, m_shortcuts, m_layout, {u"2.1.0"_s, u"/home/user"_s}, {});
    for (const auto &content : {u"filled"_s, u"empty"_s, u"offline"_s}) {
        if (content == u"filled") {
            fill();
        } else if (content == u"empty") {
            empty();
        } else {
            m_model->setSnapshot(nullptr);
        }
        SettingsWindow window(m_ui.get(), app, m_scheduler, nullptr);
        window.bringToFront();
        for (const auto pane : allPanes) {
            m_navigation.setPane(pane);
            take(window, rawValue(pane) + u'-' + content + u'-' + language);
        }
        window.resize(SettingsWindow::minimumContentSize);
        for (const auto pane : allPanes) {
            m_navigation.setPane(pane);
            take(window, rawValue(pane) + u"-small-"_s + content + u'-' + language);
        }
        m_navigation.setPane(Pane::Now);
    }
}

void Studio::takeRaised(const QString &language) {
    fill();
    AppView app(*m_model, m_navigation, m_shortcuts, m_layout, {u"2.1.0"_s, u"/home/user"_s}, {});
    m_ui.setContrastRaised(true);
    {
        SettingsWindow window(m_ui.get(), app, m_scheduler, nullptr);
        window.bringToFront();
        for (const auto pane : allPanes) {
            m_navigation.setPane(pane);
            take(window, rawValue(pane) + u"-raised-"_s + language);
        }
        m_navigation.setPane(Pane::Now);
    }
    m_ui.setContrastRaised(false);
}

void Studio::takeRecorder(const QString &language) {
    constexpr quint32 keyA = 0x00;
    constexpr quint32 tab = 0x30;
    constexpr quint32 space = 0x31;
    fill();
    AppView app(*m_model, m_navigation, m_shortcuts, m_layout, {u"2.1.0"_s, u"/home/user"_s}, {});
    m_navigation.setPane(Pane::Listening);
    SettingsWindow window(m_ui.get(), app, m_scheduler, nullptr);
    window.resize(1120, 1500);
    window.bringToFront();
    auto &recorder = *app.listening()->listenShortcut();
    const auto picture = [&](const QString &state) { take(window, u"recorder-"_s + state + u'-' + language); };
    picture(u"set"_s);
    recorder.start();
    picture(u"recording"_s);
    recorder.handle(keyA, 0);
    picture(u"refused"_s);
    // The refusal stands until the next start.
    recorder.stop();
    recorder.start();
    recorder.stop();
    m_model->setHotKeyProblem(L("shortcut.taken", m_shortcuts.listen()->text(m_layout)));
    picture(u"taken"_s);
    m_model->setHotKeyProblem(std::nullopt);
    m_shortcuts.setListen(std::nullopt);
    picture(u"none"_s);
    m_shortcuts.setListen(Shortcut{tab, Shortcut::control | Shortcut::option | Shortcut::shift | Shortcut::command});
    picture(u"longest"_s);
    m_shortcuts.setListen(Shortcuts::defaultListen);
    auto &stopRecorder = *app.listening()->stopShortcut();
    stopRecorder.start();
    picture(u"recording-stop"_s);
    stopRecorder.handle(space, Shortcut::option);
    picture(u"duplicate"_s);
    m_navigation.setPane(Pane::Now);
}

void Studio::takeStrip(const QString &language) {
    // What is spoken and how loud it is come as events.
    ScriptedBackend backend;
    backend.on("/events", [](auto exchange) { exchange->beginEvents(); });
    PalometModel model(m_scheduler, m_permission, backend.base());
    model.setMicAuthorized(true);
    model.start();

    StripView view(model, [] {});
    StripWindow strip(m_ui, view, nullptr, StripWindow::Pointer::Unknown);
    strip.orderFront(QPoint(0, 0));
    const auto picture = [&](const QString &state, const QString &name, bool isMuted = false) {
        auto document = QJsonDocument::fromJson(preview::documents(0).state).object();
        document[u"state"_s] = state;
        document[u"isMuted"_s] = isMuted;
        if (auto snapshot = decodeSnapshot(QJsonDocument(document).toJson()))
            model.setSnapshot(std::make_shared<const Snapshot>(std::move(*snapshot)));
        take(*test::stripWindows().constFirst(), u"strip-"_s + name + u'-' + language);
    };
    picture(u"waiting"_s, u"waiting"_s);
    const auto events = backend.last("/events");
    events->event("level", "0.3");
    events->event("outLevel", "0.3");
    const auto sample = QJsonDocument::fromJson(preview::documents(0).state);
    const auto answer = sample[u"conversation"_s][u"rows"_s].toArray().last()[u"text"_s].toString();
    events->event("spoken", '"' + answer.toUtf8() + '"');
    for (const auto &state : {u"listening"_s, u"hearing"_s, u"drafting"_s, u"thinking"_s, u"speaking"_s})
        picture(state, state);
    picture(u"muted"_s, u"muted-by-the-user"_s, true);
    picture(u"muted"_s, u"muted"_s);
    model.setSnapshot(nullptr);
    take(*test::stripWindows().constFirst(), u"strip-offline-"_s + language);
}

bool Studio::takeFile(const QString &qml, const QString &path) {
    QQuickView view(&m_ui.get(), nullptr);
    view.setSource(QUrl::fromLocalFile(qml));
    view.show();
    settle();
    const auto taken = preview::capture(view, path);
    if (!taken)
        std::fprintf(stderr, "%s\n", taken.reason().toLocal8Bit().constData());
    return taken.isOk();
}

} // namespace palomet::test

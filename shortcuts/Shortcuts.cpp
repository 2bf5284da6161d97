#include "shortcuts/Shortcuts.h"

#include "shortcuts/Key.h"

#include <QSettings>

#include <utility>

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

const auto listenKey = u"listenShortcut"_s;
const auto stopKey = u"stopShortcut"_s;

} // namespace

const Shortcut Shortcuts::defaultListen{Key::Space, Shortcut::option};
const Shortcut Shortcuts::defaultStop{Key::Escape, 0};

Shortcuts::Shortcuts(QSettings &settings)
    : m_settings(settings) {
    setListen(storedListen(settings));
    setStop(load(settings, stopKey).value_or(defaultStop));
}

Shortcut Shortcuts::storedListen(const QSettings &settings) {
    return load(settings, listenKey).value_or(defaultListen);
}

void Shortcuts::setListen(std::optional<Shortcut> shortcut) {
    m_listen = shortcut;
    Q_EMIT listenChanged();
    save(listenKey, m_listen);
    onChange();
}

void Shortcuts::setStop(std::optional<Shortcut> shortcut) {
    m_stop = shortcut;
    Q_EMIT stopChanged();
    save(stopKey, m_stop);
    onChange();
}

void Shortcuts::setPaused(bool isPaused) {
    m_mainThread.check();
    m_isPaused = isPaused;
    onChange();
}

void Shortcuts::setGranted(const QString &listen, const QString &stop) {
    if (m_grantedListen == listen && m_grantedStop == stop)
        return;
    m_grantedListen = listen;
    m_grantedStop = stop;
    Q_EMIT grantedChanged();
}

void Shortcuts::setGrantable(bool isGrantable) {
    if (std::exchange(m_isGrantable, isGrantable) != isGrantable)
        Q_EMIT grantableChanged();
}

void Shortcuts::save(const QString &key, const std::optional<Shortcut> &shortcut) {
    m_mainThread.check();
    m_settings.setValue(key, shortcut ? QString::fromLatin1(shortcut->toJson()) : u"none"_s);
    // At once, and by the file's replacement as a whole: a crash keeps either the old value or the new one.
    m_settings.sync();
}

std::optional<Shortcut> Shortcuts::load(const QSettings &settings, const QString &key) {
    return Shortcut::fromJson(settings.value(key).toByteArray());
}

} // namespace palomet

#pragma once

#include "base/Callback.h"
#include "base/OnThread.h"
#include "shortcuts/Shortcut.h"

#include <QObject>

#include <optional>

class QSettings;

namespace palomet {

/// The user's two global shortcuts and a switch that pauses them, kept in the settings file. Main thread only.
class Shortcuts final : public QObject {
    Q_OBJECT

public:
    static const Shortcut defaultListen; ///< Option and Space.
    static const Shortcut defaultStop;   ///< Escape alone.

    /// Reads both shortcuts and writes them back at once. What cannot be read, or says "none", is the default: a
    /// shortcut that was cleared stays so until the program ends. `settings` outlives this.
    explicit Shortcuts(QSettings &settings);

    /// The listen shortcut as such an object would read it, without writing anything.
    [[nodiscard]] static Shortcut storedListen(const QSettings &settings);

    [[nodiscard]] const std::optional<Shortcut> &listen() const { return m_listen; }
    [[nodiscard]] const std::optional<Shortcut> &stop() const { return m_stop; }
    [[nodiscard]] bool isPaused() const { return m_isPaused; }

    /// Announced, saved, and reported to the owner, also when the value is the same.
    void setListen(std::optional<Shortcut> shortcut);
    void setStop(std::optional<Shortcut> shortcut);

    /// While paused, no hot key of this store may be registered. Reported, never saved.
    void setPaused(bool isPaused);

    /// What the desktop calls the keys that its user granted in place of the stored ones; empty where those hold.
    [[nodiscard]] const QString &grantedListen() const { return m_grantedListen; }
    [[nodiscard]] const QString &grantedStop() const { return m_grantedStop; }
    /// Announced where it is another; never saved, nor reported.
    void setGranted(const QString &listen, const QString &stop);

    /// Whether the desktop grants keys to programs at all, as far as is known. Announced where it is another.
    [[nodiscard]] bool isGrantable() const { return m_isGrantable; }
    void setGrantable(bool isGrantable);

    /// The owner's, called after every change of any of the three.
    Callback<void()> onChange;

Q_SIGNALS:
    void listenChanged();
    void stopChanged();
    void grantedChanged();
    void grantableChanged();

private:
    void save(const QString &key, const std::optional<Shortcut> &shortcut);
    [[nodiscard]] static std::optional<Shortcut> load(const QSettings &settings, const QString &key);

    [[no_unique_address]] OnThread m_mainThread;
    QSettings &m_settings;
    std::optional<Shortcut> m_listen;
    std::optional<Shortcut> m_stop;
    QString m_grantedListen;
    QString m_grantedStop;
    bool m_isPaused = false;
    bool m_isGrantable = true;
};

} // namespace palomet

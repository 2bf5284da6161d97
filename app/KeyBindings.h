#pragma once

#include "shortcuts/HotKeys.h"
#include "shortcuts/KeyboardLayout.h"
#include "shortcuts/Shortcuts.h"

#include <QKeySequence>
#include <QObject>

#include <functional>

namespace palomet {

class PalometModel;

/// Keeps the global hot keys, and the keys that the menu shows, as the user's shortcuts are: registers them anew
/// whenever a shortcut, the pause or the need for the stop key changes. Another keyboard layout only gives them other
/// names: they stay held, and what was refused is not asked for again. Main thread.
class KeyBindings final : public QObject {
    Q_OBJECT

public:
    struct Parts {
        PalometModel &model;
        HotKeys &hotKeys;
        Shortcuts &shortcuts;
        KeyboardLayout &layout;
        /// Shows keys in the menu; an empty sequence is none.
        std::function<void(const QKeySequence &listen, const QKeySequence &stop)> showInMenu;
        /// Shows the key that stops, in words, while it does; empty while none does.
        std::function<void(const QString &words)> showStopKey;
    };

    /// Nothing is registered before `start`. All parts outlive this.
    explicit KeyBindings(const Parts &parts);

    void start();

    /// The stop key is taken only while there is something to stop: it is Escape, which everybody needs.
    void setStopNeeded(bool isStopNeeded);

    /// A shortcut as a menu shows it, under a keyboard layout.
    [[nodiscard]] static QKeySequence keySequence(const std::optional<Shortcut> &shortcut,
                                                  const KeyboardLayout &layout);

private:
    void registerShortcuts();
    /// Says the keys' names, which another layout changes: in the menu, where the desktop granted others, and where the
    /// listen key was refused.
    void nameKeys();
    /// The keys of a shortcut as the menu shows them: those that the desktop granted in its place, the first of
    /// several.
    [[nodiscard]] QKeySequence shownKeys(quint32 id, const std::optional<Shortcut> &shortcut) const;
    [[nodiscard]] QString stopKeyWords() const;
    /// What the desktop calls the keys that it granted in place of a shortcut; empty where they are the same.
    [[nodiscard]] QString granted(quint32 id, const std::optional<Shortcut> &shortcut) const;
    void reportRefusal(quint32 id);

    Parts m_parts;
    Connection m_shortcutsChange;
    HotKeyGrabber::Occasion m_occasion = HotKeyGrabber::Occasion::Known;
    bool m_isStopNeeded = false;
};

} // namespace palomet

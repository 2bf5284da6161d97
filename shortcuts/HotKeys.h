#pragma once

#include "base/OnThread.h"
#include "shortcuts/DesktopKeys.h"
#include "shortcuts/HotKeyGrabber.h"

#include <QObject>

#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace palomet {

/// The registry of system-wide hot keys: an id, a combination, and what to do when it is pressed. It knows nothing of
/// what the actions do. Main thread only.
class HotKeys final : public QObject {
    Q_OBJECT

public:
    /// `desktopKeys` is null where the grabber alone knows who has a key.
    explicit HotKeys(std::unique_ptr<HotKeyGrabber> grabber, std::unique_ptr<DesktopKeys> desktopKeys = nullptr);
    ~HotKeys() override;

    /// Names every hot key that may be registered; see `HotKeyGrabber::offer`.
    void offer(const std::vector<HotKeyOffer> &offers, HotKeyGrabber::Occasion occasion) {
        m_grabber->offer(offers, occasion);
    }

    /// Whether the desktop grants keys to programs at all, as far as is known.
    [[nodiscard]] bool isPossible() const { return m_grabber->isPossible(); }

    /// Whether a hot key is registered, and its keys are known; see `HotKeyGrabber::isKnown`.
    [[nodiscard]] bool isKnown(quint32 id) const { return m_actions.contains(id) && m_grabber->isKnown(id); }

    /// What the desktop calls the keys that its user chose; empty where the combination is what was asked for.
    [[nodiscard]] QString trigger(quint32 id) const { return m_grabber->trigger(id); }

    /// Registers a hot key; false when the desktop refuses it or has it for itself. An id that is registered already
    /// stays as it is, and the answer is true: unregister it first to replace it. A key code or modifiers outside 32
    /// bits end the process: they are never user input.
    bool registerHotKey(quint32 id, qint64 keyCode, qint64 modifiers, std::function<void()> action);

    /// An unknown id is ignored. A press that is already on its way no longer runs the action.
    void unregisterHotKey(quint32 id);

Q_SIGNALS:
    /// The desktop refused a hot key after it had seemed registered; it no longer is.
    void refused(quint32 id);

    /// The desktop would grant a hot key that is not registered, perhaps one that it had refused.
    void granted(quint32 id);

    /// `trigger` tells other keys than before, or `isPossible` and `isKnown` something else.
    void triggersChanged();

private:
    void pressed(quint32 id);

    [[no_unique_address]] OnThread m_mainThread;
    std::unique_ptr<HotKeyGrabber> m_grabber;
    std::unique_ptr<DesktopKeys> m_desktopKeys;
    std::map<quint32, std::function<void()>> m_actions;
};

} // namespace palomet

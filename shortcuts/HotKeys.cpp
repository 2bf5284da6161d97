#include "shortcuts/HotKeys.h"

#include <limits>

namespace palomet {

HotKeys::HotKeys(std::unique_ptr<HotKeyGrabber> grabber, std::unique_ptr<DesktopKeys> desktopKeys)
    : m_grabber(std::move(grabber))
    , m_desktopKeys(std::move(desktopKeys)) {
    m_grabber->onPressed = [this](quint32 id) { pressed(id); };
    m_grabber->onRefused = [this](quint32 id) {
        if (m_actions.erase(id) != 0)
            Q_EMIT refused(id);
    };
    m_grabber->onGranted = [this](quint32 id) { Q_EMIT granted(id); };
    m_grabber->onTriggersChanged = [this] { Q_EMIT triggersChanged(); };
}

HotKeys::~HotKeys() = default;

bool HotKeys::registerHotKey(quint32 id, qint64 keyCode, qint64 modifiers, std::function<void()> action) {
    m_mainThread.check();
    if (m_actions.contains(id))
        return true;
    constexpr qint64 limit = std::numeric_limits<quint32>::max();
    if (keyCode < 0 || keyCode > limit || modifiers < 0 || modifiers > limit)
        qFatal("a hot key's code and modifiers must fit in 32 bits");
    const auto code = static_cast<quint32>(keyCode);
    const auto bits = static_cast<quint32>(modifiers);
    if (m_desktopKeys && !m_desktopKeys->actionOn(code, bits).isEmpty())
        return false;
    if (!m_grabber->grab(id, code, bits))
        return false;
    m_actions.emplace(id, std::move(action));
    return true;
}

void HotKeys::unregisterHotKey(quint32 id) {
    m_mainThread.check();
    if (m_actions.erase(id) != 0)
        m_grabber->release(id);
}

void HotKeys::pressed(quint32 id) {
    m_mainThread.check();
    // Looked up when it runs, not now: what was unregistered in between must not run.
    QMetaObject::invokeMethod(
        this,
        [this, id] {
            const auto found = m_actions.find(id);
            if (found == m_actions.end())
                return;
            const auto action = found->second;
            action();
        },
        Qt::QueuedConnection);
}

} // namespace palomet

#include "app/KeyBindings.h"

#include "localization/Localization.h"
#include "model/PalometModel.h"

#include <QHash>

#include <utility>

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 listenId = 1;
constexpr quint32 stopId = 2;

/// The toolkit's key for a menu key character.
int toolkitKey(char16_t character) {
    static const QHash<char16_t, int> keys{
        {u'\uF700', Qt::Key_Up},     {u'\uF701', Qt::Key_Down},   {u'\uF702', Qt::Key_Left},
        {u'\uF703', Qt::Key_Right},  {u'\uF728', Qt::Key_Delete}, {u'\uF729', Qt::Key_Home},
        {u'\uF72B', Qt::Key_End},    {u'\uF72C', Qt::Key_PageUp}, {u'\uF72D', Qt::Key_PageDown},
        {u'\u000D', Qt::Key_Return}, {u'\u0003', Qt::Key_Enter},  {u'\u0008', Qt::Key_Backspace},
        {u'\u0009', Qt::Key_Tab},    {u'\u001B', Qt::Key_Escape}, {u'\u0020', Qt::Key_Space},
    };
    constexpr char16_t beforeF1 = u'\uF703';
    constexpr char16_t f20 = u'\uF717';
    if (character > beforeF1 && character <= f20)
        return Qt::Key_F1 + character - beforeF1 - 1;
    return keys.value(character, QChar(character).toUpper().unicode());
}

} // namespace

KeyBindings::KeyBindings(const Parts &parts)
    : m_parts(parts) {
    m_shortcutsChange = m_parts.shortcuts.onChange.connect([this] { registerShortcuts(); });
    // Said before the change is.
    const auto choose = [this](const std::optional<Shortcut> &shortcut) {
        if (shortcut)
            m_occasion = HotKeyGrabber::Occasion::Chosen;
    };
    connect(&m_parts.shortcuts, &Shortcuts::listenChanged, this, [=, this] { choose(m_parts.shortcuts.listen()); });
    connect(&m_parts.shortcuts, &Shortcuts::stopChanged, this, [=, this] { choose(m_parts.shortcuts.stop()); });
    connect(&m_parts.layout, &KeyboardLayout::changed, this, &KeyBindings::nameKeys);
    connect(&m_parts.hotKeys, &HotKeys::refused, this, [this](quint32 id) {
        reportRefusal(id);
        m_parts.showStopKey(stopKeyWords());
    });
    connect(&m_parts.hotKeys, &HotKeys::granted, this, &KeyBindings::registerShortcuts);
    connect(&m_parts.hotKeys, &HotKeys::triggersChanged, this, &KeyBindings::nameKeys);
}

void KeyBindings::start() {
    registerShortcuts();
}

void KeyBindings::setStopNeeded(bool isStopNeeded) {
    if (isStopNeeded == m_isStopNeeded)
        return;
    m_isStopNeeded = isStopNeeded;
    registerShortcuts();
}

void KeyBindings::registerShortcuts() {
    auto &model = m_parts.model;
    auto &hotKeys = m_parts.hotKeys;
    auto &shortcuts = m_parts.shortcuts;
    hotKeys.unregisterHotKey(listenId);
    hotKeys.unregisterHotKey(stopId);
    model.setHotKeyProblem(std::nullopt);

    const auto &listen = shortcuts.listen();
    const auto &stop = shortcuts.stop();
    std::vector<HotKeyOffer> offers;
    if (listen)
        offers.push_back({listenId, L("menu.listen"), listen->keyCode, listen->carbonModifiers()});
    if (stop)
        offers.push_back({stopId, L("menu.stop"), stop->keyCode, stop->carbonModifiers()});
    hotKeys.offer(offers, std::exchange(m_occasion, HotKeyGrabber::Occasion::Known));

    if (!shortcuts.isPaused() && listen &&
        !hotKeys.registerHotKey(listenId, listen->keyCode, listen->carbonModifiers(), [&model] { model.listen(); }))
        reportRefusal(listenId);
    // Whether the stop key was granted is deliberately not looked at: only the listen key's problem is shown.
    if (!shortcuts.isPaused() && m_isStopNeeded && stop)
        hotKeys.registerHotKey(stopId, stop->keyCode, stop->carbonModifiers(), [&model] { model.stop(); });
    nameKeys();
}

void KeyBindings::nameKeys() {
    m_parts.showInMenu(shownKeys(listenId, m_parts.shortcuts.listen()), shownKeys(stopId, m_parts.shortcuts.stop()));
    m_parts.showStopKey(stopKeyWords());
    m_parts.shortcuts.setGranted(granted(listenId, m_parts.shortcuts.listen()),
                                 granted(stopId, m_parts.shortcuts.stop()));
    m_parts.shortcuts.setGrantable(m_parts.hotKeys.isPossible());
    if (m_parts.model.hotKeyProblem())
        reportRefusal(listenId);
}

QKeySequence KeyBindings::shownKeys(quint32 id, const std::optional<Shortcut> &shortcut) const {
    const auto words = granted(id, shortcut);
    if (words.isEmpty())
        return keySequence(shortcut, m_parts.layout);
    const QKeySequence sequence(words, QKeySequence::NativeText);
    // Words that the toolkit does not know stand for no key.
    const bool isKnown = !sequence.isEmpty() && sequence[0].key() != Qt::Key_unknown;
    return isKnown ? QKeySequence(sequence[0]) : QKeySequence();
}

QString KeyBindings::stopKeyWords() const {
    if (!m_parts.hotKeys.isKnown(stopId))
        return {};
    const auto &stop = m_parts.shortcuts.stop();
    if (auto words = granted(stopId, stop); !words.isEmpty())
        return words;
    const auto sequence = keySequence(stop, m_parts.layout);
    return sequence == QKeySequence(Qt::Key_Escape) ? u"esc"_s : sequence.toString(QKeySequence::NativeText);
}

QString KeyBindings::granted(quint32 id, const std::optional<Shortcut> &shortcut) const {
    auto trigger = m_parts.hotKeys.trigger(id);
    const bool isAsWished = QKeySequence(trigger, QKeySequence::NativeText) == keySequence(shortcut, m_parts.layout);
    return isAsWished ? QString() : trigger;
}

void KeyBindings::reportRefusal(quint32 id) {
    if (id == listenId && m_parts.shortcuts.listen())
        m_parts.model.setHotKeyProblem(L("shortcut.taken", m_parts.shortcuts.listen()->text(m_parts.layout)));
}

QKeySequence KeyBindings::keySequence(const std::optional<Shortcut> &shortcut, const KeyboardLayout &layout) {
    const auto key = shortcut ? shortcut->menuKey(layout) : QString();
    if (key.size() != 1)
        return {};
    Qt::KeyboardModifiers modifiers;
    modifiers.setFlag(Qt::ShiftModifier, (shortcut->flags & Shortcut::shift) != 0);
    modifiers.setFlag(Qt::ControlModifier, (shortcut->flags & Shortcut::control) != 0);
    modifiers.setFlag(Qt::AltModifier, (shortcut->flags & Shortcut::option) != 0);
    modifiers.setFlag(Qt::MetaModifier, (shortcut->flags & Shortcut::command) != 0);
    return QKeyCombination(modifiers, static_cast<Qt::Key>(toolkitKey(key.front().unicode())));
}

} // namespace palomet

#include "ui/screens/KeyRecorder.h"

#include "localization/Localization.h"
#include "shortcuts/KeyCodes.h"
#include "ui/screens/KeyWords.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace palomet {

namespace {

constexpr quint32 escapeCode = 53;
constexpr quint32 deleteCode = 51;
constexpr quint32 forwardDeleteCode = 117;

quint64 flagsOf(Qt::KeyboardModifiers modifiers) {
    quint64 flags = 0;
    if (modifiers.testFlag(Qt::ShiftModifier))
        flags |= Shortcut::shift;
    if (modifiers.testFlag(Qt::ControlModifier))
        flags |= Shortcut::control;
    if (modifiers.testFlag(Qt::AltModifier))
        flags |= Shortcut::option;
    if (modifiers.testFlag(Qt::MetaModifier))
        flags |= Shortcut::command;
    return flags;
}

/// A key that is only held: no combination by itself.
bool isModifier(int key) {
    switch (key) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
    case Qt::Key_Hyper_L:
    case Qt::Key_Hyper_R:
    case Qt::Key_Mode_switch:
        return true;
    default:
        return false;
    }
}

/// A key that does its own work in every program: no shortcut either.
bool isLock(int key) {
    return key == Qt::Key_CapsLock || key == Qt::Key_NumLock || key == Qt::Key_ScrollLock;
}

/// Leads to what is next, or before, and so away from here.
bool isTab(const QKeyEvent &event) {
    const bool isPlain = (event.modifiers() & ~Qt::ShiftModifier) == Qt::NoModifier;
    return isPlain && (event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab);
}

/// The position of the key on the keyboard. X numbers the keys as the kernel does, plus eight.
std::optional<quint32> keyCodeOf(const QKeyEvent &event) {
    const auto scanCode = event.nativeScanCode();
    return scanCode < 8 ? std::nullopt : KeyCodes::fromEvdev(static_cast<quint16>(scanCode - 8));
}

} // namespace

KeyRecorder::KeyRecorder(Role role, Shortcuts &shortcuts, const KeyboardLayout &layout)
    : m_role(role)
    , m_shortcuts(shortcuts)
    , m_layout(layout) {
    connect(&m_shortcuts, role == Role::Listen ? &Shortcuts::listenChanged : &Shortcuts::stopChanged, this,
            &KeyRecorder::changed);
    connect(&m_layout, &KeyboardLayout::changed, this, &KeyRecorder::changed);
}

KeyRecorder::~KeyRecorder() {
    stop();
}

QString KeyRecorder::title() const {
    return m_role == Role::Listen ? L("menu.listen") : L("menu.stop");
}

QString KeyRecorder::description() const {
    if (m_problem)
        return *m_problem;
    return m_role == Role::Listen ? L("listening.listenShortcut.hint") : L("listening.stopShortcut.hint");
}

QStringList KeyRecorder::caps() const {
    return shortcut() ? shortcut()->caps(m_layout) : QStringList();
}

QString KeyRecorder::spoken() const {
    return shortcut() ? spokenShortcut(*shortcut(), m_layout) : QString();
}

QString KeyRecorder::hint() const {
    return allowsKeyAlone() ? L("recorder.hint.keyAlone") : L("recorder.hint");
}

QString KeyRecorder::help() const {
    return m_isRecording ? L("recorder.help.recording") : L("recorder.help.idle");
}

const std::optional<Shortcut> &KeyRecorder::shortcut() const {
    return m_role == Role::Listen ? m_shortcuts.listen() : m_shortcuts.stop();
}

void KeyRecorder::store(std::optional<Shortcut> shortcut) {
    if (m_role == Role::Listen)
        m_shortcuts.setListen(shortcut);
    else
        m_shortcuts.setStop(shortcut);
}

void KeyRecorder::setProblem(const std::optional<QString> &problem) {
    if (m_problem == problem)
        return;
    m_problem = problem;
    Q_EMIT changed();
}

void KeyRecorder::toggle() {
    if (m_isRecording)
        stop();
    else
        start();
}

void KeyRecorder::start() {
    if (m_isRecording)
        return;
    Q_EMIT started();
    m_refusal = {};
    m_isRecording = true;
    m_shortcuts.setPaused(true);
    QCoreApplication::instance()->installEventFilter(this);
    Q_EMIT changed();
}

void KeyRecorder::stop() {
    if (!m_isRecording)
        return;
    QCoreApplication::instance()->removeEventFilter(this);
    m_isRecording = false;
    m_shortcuts.setPaused(false);
    Q_EMIT changed();
}

void KeyRecorder::disappear() {
    stop();
    m_refusal = {};
    Q_EMIT changed();
}

void KeyRecorder::refuse(std::function<QString()> message) {
    m_refusal = std::move(message);
    Q_EMIT changed();
}

void KeyRecorder::handle(quint32 keyCode, quint64 flags) {
    const Shortcut candidate(keyCode, flags);
    if ((keyCode == deleteCode || keyCode == forwardDeleteCode) && candidate.flags == 0) {
        stop();
        store(std::nullopt);
        return;
    }
    if (!allowsKeyAlone() && keyCode == escapeCode && candidate.flags == 0) {
        stop();
        return;
    }
    if (!allowsKeyAlone() && !candidate.isUsable()) {
        refuse([] { return L("recorder.needsModifier"); });
        return;
    }
    stop();
    const auto &other = allowsKeyAlone() ? m_shortcuts.listen() : m_shortcuts.stop();
    if (other == candidate) {
        refuse([=, this] {
            return L("recorder.duplicate",
                     {candidate.text(m_layout), allowsKeyAlone() ? L("menu.listen") : L("menu.stop")});
        });
        return;
    }
    store(candidate);
}

bool KeyRecorder::eventFilter(QObject *, QEvent *event) {
    // A key goes first to its window: taken there, it reaches nothing else. ShortcutOverride asks whether to treat the
    // key as a shortcut of the window; that is answered by taking it too.
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride)
        return false;
    auto *key = static_cast<QKeyEvent *>(event);
    key->accept();
    // A key that is held down, perhaps the one that began the recording, counts once.
    if (event->type() == QEvent::ShortcutOverride || key->isAutoRepeat() || isModifier(key->key()))
        return true;
    if (isTab(*key)) {
        stop();
        return false;
    }
    const auto keyCode = isLock(key->key()) ? std::nullopt : keyCodeOf(*key);
    if (keyCode)
        handle(*keyCode, flagsOf(key->modifiers()));
    else
        refuse([] { return L("recorder.unknownKey"); });
    return true;
}

} // namespace palomet

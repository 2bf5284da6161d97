#include "ui/screens/KeyRecorder.h"

#include "shortcuts/KeyCodes.h"
#include "ui/localization/Localization.h"

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
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
    case Qt::Key_ScrollLock:
    case Qt::Key_Mode_switch:
        return true;
    default:
        return false;
    }
}

/// The position of the key on the keyboard. X numbers the keys as the kernel does, plus eight.
std::optional<quint32> keyCodeOf(const QKeyEvent &event) {
    const auto scanCode = event.nativeScanCode();
    return scanCode < 8 ? std::nullopt : KeyCodes::fromEvdev(static_cast<quint16>(scanCode - 8));
}

/// What is printed on the key, where the shortcut's own name for it is a sign.
QString keyWord(const Shortcut &shortcut, const KeyboardLayout &layout) {
    switch (shortcut.keyCode) {
    case 36:
        return QStringLiteral("Return");
    case 76:
        return QStringLiteral("Enter");
    case 48:
        return QStringLiteral("Tab");
    case deleteCode:
        return QStringLiteral("Backspace");
    case forwardDeleteCode:
        return QStringLiteral("Delete");
    case escapeCode:
        return QStringLiteral("Esc");
    case 115:
        return QStringLiteral("Home");
    case 119:
        return QStringLiteral("End");
    case 116:
        return QStringLiteral("Page Up");
    case 121:
        return QStringLiteral("Page Down");
    default:
        return shortcut.keyName(layout);
    }
}

} // namespace

KeyRecorder::KeyRecorder(Role role, Shortcuts &shortcuts, const KeyboardLayout &layout)
    : m_role(role)
    , m_shortcuts(shortcuts)
    , m_layout(layout) {
    connect(&m_shortcuts, role == Role::Listen ? &Shortcuts::listenChanged : &Shortcuts::stopChanged, this,
            &KeyRecorder::changed);
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
    if (!shortcut())
        return {};
    QStringList words;
    if (shortcut()->flags & Shortcut::control)
        words.append(QStringLiteral("Ctrl"));
    if (shortcut()->flags & Shortcut::option)
        words.append(QStringLiteral("Alt"));
    if (shortcut()->flags & Shortcut::shift)
        words.append(QStringLiteral("Shift"));
    if (shortcut()->flags & Shortcut::command)
        words.append(QStringLiteral("Super"));
    words.append(keyWord(*shortcut(), m_layout));
    return words.join(QStringLiteral(" + "));
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
    m_message.clear();
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
    m_message.clear();
    Q_EMIT changed();
}

void KeyRecorder::refuse(const QString &message) {
    m_message = message;
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
        refuse(L("recorder.needsModifier"));
        return;
    }
    stop();
    const auto &other = allowsKeyAlone() ? m_shortcuts.listen() : m_shortcuts.stop();
    if (other == candidate) {
        refuse(
            L("recorder.duplicate", {candidate.text(m_layout), allowsKeyAlone() ? L("menu.listen") : L("menu.stop")}));
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
    if (event->type() == QEvent::KeyPress && !key->isAutoRepeat() && !isModifier(key->key())) {
        if (const auto keyCode = keyCodeOf(*key))
            handle(*keyCode, flagsOf(key->modifiers()));
    }
    return true;
}

} // namespace palomet

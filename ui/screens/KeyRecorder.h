#pragma once

#include "shortcuts/Shortcuts.h"

#include <QObject>
#include <QtQml/qqml.h>

#include <functional>

class QKeyEvent;

namespace palomet {

/// Records a shortcut: press the control, then the new combination. While it records, the store's hot keys are paused,
/// and every key pressed in this program's windows comes here and goes nowhere else. Only Tab ends the recording and
/// goes on to the next control. Main thread only.
class KeyRecorder final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Recorders come from their screen.")
    Q_PROPERTY(QString title READ title CONSTANT FINAL)
    Q_PROPERTY(QString description READ description NOTIFY changed FINAL)
    Q_PROPERTY(QStringList caps READ caps NOTIFY changed FINAL)
    Q_PROPERTY(QString spoken READ spoken NOTIFY changed FINAL)
    Q_PROPERTY(bool isRecording READ isRecording NOTIFY changed FINAL)
    Q_PROPERTY(QString hint READ hint CONSTANT FINAL)
    Q_PROPERTY(QString message READ message NOTIFY changed FINAL)
    Q_PROPERTY(QString help READ help NOTIFY changed FINAL)

public:
    /// The shortcut that it records. For Stop, a key alone will do.
    enum class Role { Listen, Stop };

    /// The store and the layout outlive it.
    KeyRecorder(Role role, Shortcuts &shortcuts, const KeyboardLayout &layout);
    ~KeyRecorder() override;

    [[nodiscard]] QString title() const;
    /// Says what the shortcut does, or why it does not work.
    [[nodiscard]] QString description() const;
    /// The keys that work: those that the desktop granted, in its words, or the stored ones.
    [[nodiscard]] QStringList caps() const;
    /// The shortcut in words, for a screen reader.
    [[nodiscard]] QString spoken() const;
    [[nodiscard]] bool isRecording() const { return m_isRecording; }
    [[nodiscard]] QString hint() const;
    /// The last refusal; empty when there is none.
    [[nodiscard]] QString message() const { return m_refusal ? m_refusal() : QString(); }
    [[nodiscard]] QString help() const;

    void setProblem(const std::optional<QString> &problem);

    /// Starts to record, or ends the recording without a change. The control has the focus meanwhile, and calls `stop`
    /// when it loses it.
    Q_INVOKABLE void toggle();
    /// To be called when the control disappears: stops, and forgets the last refusal.
    Q_INVOKABLE void disappear();
    void start();
    Q_INVOKABLE void stop();

    /// Takes one key pressed while recording: its virtual key code and the modifier bits held with it.
    void handle(quint32 keyCode, quint64 flags);

    bool eventFilter(QObject *object, QEvent *event) override;

Q_SIGNALS:
    void changed();
    void started();

private:
    [[nodiscard]] bool allowsKeyAlone() const { return m_role == Role::Stop; }
    [[nodiscard]] const std::optional<Shortcut> &shortcut() const;
    [[nodiscard]] const QString &granted() const;
    void store(std::optional<Shortcut> shortcut);
    /// Keeps the function rather than the text, because a key has another name in another layout.
    void refuse(std::function<QString()> message);

    const Role m_role;
    Shortcuts &m_shortcuts;
    const KeyboardLayout &m_layout;
    bool m_isRecording = false;
    std::function<QString()> m_refusal;
    std::optional<QString> m_problem;
};

} // namespace palomet

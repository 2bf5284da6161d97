#pragma once

#include "ui/screens/SettingGroup.h"

#include <QJsonValue>

namespace palomet {

/// One row of a settings screen: what it is called, what it shows, and what the user asks for. It shows what the model
/// says, as long as its screen is active; asking changes nothing here. Main thread only; the group outlives it.
class Setting : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Settings come from their screen.")
    Q_PROPERTY(QString title READ title NOTIFY changed FINAL)
    Q_PROPERTY(QString hint READ hint NOTIFY changed FINAL)
    Q_PROPERTY(Content content READ content CONSTANT FINAL)

public:
    /// What its box has room for. A path that is too long is cut in its middle.
    enum class Content { Number, Name, LongName, Line, Path };
    Q_ENUM(Content)

    /// The keys of its texts. They are looked up when they are shown; what is no key is shown as it is.
    struct Texts {
        /// The title's key; the others are that with ".hint" and ".placeholder".
        Texts(const char *name);
        /// Without a hint, "".
        Texts(const char *titleKey, const char *hintKey, const char *placeholderKey = "");

        QString title;
        QString hint;
        QString placeholder;
    };

    [[nodiscard]] QString title() const;
    [[nodiscard]] QString hint() const;
    [[nodiscard]] Content content() const { return m_content; }

    /// Another hint for now.
    void setHintKey(const char *key);

Q_SIGNALS:
    void changed();

protected:
    /// `key` is what the settings command calls it.
    Setting(SettingGroup &group, QString key, Texts texts, Content content);

    [[nodiscard]] PalometModel &model() const { return m_screen.model(); }
    [[nodiscard]] const QString &key() const { return m_key; }
    [[nodiscard]] const Texts &texts() const { return m_texts; }
    [[nodiscard]] bool isApplying() const { return model().applying() == m_key; }

    /// Takes over what the model says. Called when the screen becomes active and, while it is, when the snapshot or
    /// what is being applied has changed.
    virtual void update() = 0;
    /// Calls `act` at that signal, while the screen is active.
    template <typename Act>
    void follow(void (PalometModel::*signal)(), Act act) {
        connect(&model(), signal, this, [this, act] {
            if (m_screen.isActive())
                act();
        });
    }

    template <typename Value>
    void assign(Value &member, Value value) {
        if (member == value)
            return;
        member = std::move(value);
        Q_EMIT changed();
    }

private:
    Screen &m_screen;
    const QString m_key;
    Texts m_texts;
    const Content m_content;
};

} // namespace palomet

#pragma once

#include "ui/screens/Choice.h"

#include <QObject>
#include <QVariantList>
#include <QtQml/qqml.h>

#include <optional>

namespace palomet {

/// One row of a settings screen: what it is called, what it shows, and what the user asks for. It holds no value of its
/// own: it shows what the model says, and asking changes nothing here.
class Setting : public QObject {
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(QString title READ title NOTIFY changed FINAL)
    Q_PROPERTY(QString hint READ hint NOTIFY changed FINAL)

public:
    /// Both are looked up when they are shown; a name that is no key is shown as it is. Without a hint, "".
    Setting(const char *titleKey, const char *hintKey);

    [[nodiscard]] QString title() const;
    [[nodiscard]] QString hint() const;

    /// Another hint for now.
    void setHintKey(const char *key);

Q_SIGNALS:
    void changed();

protected:
    template <typename Value>
    void assign(Value &member, Value value) {
        if (member == value)
            return;
        member = std::move(value);
        Q_EMIT changed();
    }

private:
    const char *m_titleKey;
    const char *m_hintKey;
};

// Their base is named in full, for that is how the type descriptions that the lint reads name it.

/// Something that is on or off.
class SwitchSetting final : public palomet::Setting {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Settings come from their screen.")
    Q_PROPERTY(bool isOn READ isOn NOTIFY changed FINAL)

public:
    using Setting::Setting;

    [[nodiscard]] bool isOn() const { return m_isOn; }
    void show(bool isOn) { assign(m_isOn, isOn); }
    Q_INVOKABLE void toggle(bool isOn) { Q_EMIT asked(isOn); }

Q_SIGNALS:
    void asked(bool isOn);

private:
    bool m_isOn = false;
};

/// One out of several.
class ChoiceSetting final : public palomet::Setting {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Settings come from their screen.")
    Q_PROPERTY(QString value READ value NOTIFY changed FINAL)
    Q_PROPERTY(QString selected READ selected NOTIFY changed FINAL)
    Q_PROPERTY(bool isBusy READ isBusy NOTIFY changed FINAL)
    Q_PROPERTY(QVariantList choices READ choices NOTIFY choicesChanged FINAL)

public:
    using Setting::Setting;

    [[nodiscard]] QString value() const { return m_shown.value; }
    [[nodiscard]] QString selected() const { return m_shown.selected; }
    [[nodiscard]] bool isBusy() const { return m_shown.isBusy; }
    [[nodiscard]] const QVariantList &choices() const { return m_list; }

    struct Shown {
        QString value;    ///< The current choice in words; it need not be among the choices.
        QString selected; ///< Its id; none of the choices' when it is not among them.
        bool isBusy = false;

        bool operator==(const Shown &) const = default;
    };
    void show(Shown shown) { assign(m_shown, std::move(shown)); }
    void offer(std::vector<Choice> choices);
    Q_INVOKABLE void pick(const QString &id) { Q_EMIT asked(id); }

Q_SIGNALS:
    void asked(const QString &id);
    void choicesChanged();

private:
    Shown m_shown;
    std::vector<Choice> m_choices;
    QVariantList m_list;
};

/// A line of text. What is committed is shown until it is settled: as the value that the model has then, or as another.
class TextSetting final : public palomet::Setting {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Settings come from their screen.")
    Q_PROPERTY(QString text READ text NOTIFY changed FINAL)
    Q_PROPERTY(bool isBusy READ isBusy NOTIFY changed FINAL)
    Q_PROPERTY(QString placeholder READ placeholder CONSTANT FINAL)

public:
    TextSetting(const char *titleKey, const char *hintKey, const char *placeholderKey);

    /// What was committed last, as long as it is being applied; otherwise the value, empty where it is not known.
    [[nodiscard]] QString text() const { return m_committed ? *m_committed : m_value.value_or(QString()); }
    /// Whether what was committed is being applied.
    [[nodiscard]] bool isBusy() const { return m_committed.has_value(); }
    [[nodiscard]] QString placeholder() const;
    /// The value, if it is known. Another one than before settles what was committed.
    void show(std::optional<QString> value);
    /// Whatever came of what was committed: from now on the value is shown.
    void settle();
    Q_INVOKABLE void commit(const QString &text);

Q_SIGNALS:
    void asked(const QString &text);

private:
    const char *m_placeholderKey;
    std::optional<QString> m_value;
    std::optional<QString> m_committed;
};

} // namespace palomet

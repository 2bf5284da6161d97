#pragma once

#include "ui/screens/Choices.h"
#include "ui/screens/Setting.h"

#include <QVariantList>

namespace palomet {

// Its base is named in full, for that is how the type descriptions that the lint reads name it.

/// A setting that is one out of several.
class ChoiceSetting final : public palomet::Setting {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Settings come from their screen.")
    /// The current choice in words; it need not be among the choices.
    Q_PROPERTY(QString value READ value NOTIFY changed FINAL)
    /// Its id; none of the choices' when it is not among them.
    Q_PROPERTY(QString selected READ selected NOTIFY changed FINAL)
    Q_PROPERTY(bool isBusy READ isBusy NOTIFY changed FINAL)
    Q_PROPERTY(QVariantList choices READ choices NOTIFY choicesChanged FINAL)

public:
    ChoiceSetting(SettingGroup &group, const Texts &texts, Choices choices, Content content);

    [[nodiscard]] QString value() const { return m_shown.current.title; }
    [[nodiscard]] QString selected() const { return m_shown.current.id; }
    [[nodiscard]] bool isBusy() const { return m_shown.isBusy; }
    [[nodiscard]] const QVariantList &choices() const { return m_list; }

    Q_INVOKABLE void pick(const QString &id) { model().set(key(), m_choices.encoded(id)); }

Q_SIGNALS:
    void choicesChanged();

protected:
    void update() override;

private:
    struct Shown {
        Choice current;
        bool isBusy = false;

        bool operator==(const Shown &) const = default;
    };

    void offer();

    const Choices m_choices;
    Shown m_shown;
    std::vector<Choice> m_offered;
    QVariantList m_list;
};

} // namespace palomet

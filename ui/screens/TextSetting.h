#pragma once

#include "ui/screens/Setting.h"
#include "ui/screens/TextValue.h"

namespace palomet {

// Its base is named in full, for that is how the type descriptions that the lint reads name it.

/// A setting that is a line of text. What is committed is shown until it is settled: as the value that the model has
/// then, or as another.
class TextSetting final : public palomet::Setting {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Settings come from their screen.")
    Q_PROPERTY(QString text READ text NOTIFY changed FINAL)
    Q_PROPERTY(bool isBusy READ isBusy NOTIFY changed FINAL)
    Q_PROPERTY(QString placeholder READ placeholder CONSTANT FINAL)

public:
    TextSetting(SettingGroup &group, const Texts &texts, const TextValue &value, Content content);

    /// What was committed last, as long as it is being applied; otherwise the value, empty where it is not known.
    [[nodiscard]] QString text() const { return m_committed ? *m_committed : m_value.value_or(QString()); }
    /// Whether what was committed is being applied.
    [[nodiscard]] bool isBusy() const { return m_committed.has_value(); }
    [[nodiscard]] QString placeholder() const;
    /// Whatever came of what was committed: from now on the value is shown.
    void settle();
    Q_INVOKABLE void commit(const QString &text);

Q_SIGNALS:
    void asked(const QString &text);

protected:
    void update() override;

private:
    /// The value, if it is known. Another one than before settles what was committed.
    void show(std::optional<QString> value);

    const std::function<QString(const Snapshot::Settings &settings)> m_read;
    std::optional<QString> m_value;
    std::optional<QString> m_committed;
};

} // namespace palomet

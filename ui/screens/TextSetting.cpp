#include "ui/screens/TextSetting.h"

#include "localization/Localization.h"
#include "ui/screens/TextSending.h"

namespace palomet {

TextSetting::TextSetting(SettingGroup &group, const Texts &texts, const TextValue &value, Content content)
    : Setting(group, value.key, texts, content)
    , m_read(value.read) {
    // After the base has shown a snapshot, which may settle the text.
    new TextSending(model(), *this, value.key, value.encoded, this);
}

QString TextSetting::placeholder() const {
    return L(texts().placeholder);
}

void TextSetting::update() {
    const auto *settings = model().settings();
    show(settings ? std::optional(m_read(*settings)) : std::nullopt);
}

void TextSetting::show(std::optional<QString> value) {
    // A value that is not known answers nothing.
    const bool isNews = value && (value == m_committed || (m_value && value != m_value));
    if (m_committed && !value)
        return;
    if (!m_committed || !isNews)
        return assign(m_value, std::move(value));
    m_value = std::move(value);
    settle();
}

void TextSetting::settle() {
    assign(m_committed, std::optional<QString>());
}

void TextSetting::commit(const QString &text) {
    assign(m_committed, std::optional(text));
    Q_EMIT asked(text);
}

} // namespace palomet

#include "ui/screens/Setting.h"

#include "localization/Localization.h"

namespace palomet {

Setting::Setting(const char *titleKey, const char *hintKey)
    : m_titleKey(titleKey)
    , m_hintKey(hintKey) {}

QString Setting::title() const {
    return L(m_titleKey);
}

QString Setting::hint() const {
    if (m_hintText)
        return *m_hintText;
    return *m_hintKey == '\0' ? QString() : L(m_hintKey);
}

void Setting::setHintKey(const char *key) {
    assign(m_hintKey, key);
}

void Setting::setHintText(std::optional<QString> text) {
    assign(m_hintText, std::move(text));
}

void ChoiceSetting::offer(std::vector<Choice> choices) {
    if (m_choices == choices)
        return;
    m_choices = std::move(choices);
    m_list.clear();
    m_list.reserve(static_cast<qsizetype>(m_choices.size()));
    for (const auto &choice : m_choices)
        m_list.append(QVariant::fromValue(choice));
    Q_EMIT choicesChanged();
}

TextSetting::TextSetting(const char *titleKey, const char *hintKey, const char *placeholderKey)
    : Setting(titleKey, hintKey)
    , m_placeholderKey(placeholderKey) {}

QString TextSetting::placeholder() const {
    return L(m_placeholderKey);
}

void TextSetting::show(std::optional<QString> value) {
    // Not known is nobody's answer.
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

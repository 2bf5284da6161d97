#include "ui/screens/ChoiceSetting.h"

namespace palomet {

ChoiceSetting::ChoiceSetting(SettingGroup &group, const Texts &texts, Choices choices, Content content)
    : Setting(group, choices.key, texts, content)
    , m_choices(std::move(choices)) {
    connect(&group.screen(), &Screen::activated, this, &ChoiceSetting::offer);
    follow(&PalometModel::optionsChanged, [this] {
        offer();
        // What is chosen may be called by what is known of the choices.
        update();
    });
}

void ChoiceSetting::update() {
    assign(m_shown, Shown{m_choices.current(model()).value_or(Choice{QString(), unknownValue}), isApplying()});
}

void ChoiceSetting::offer() {
    auto offered = m_choices.offered(model());
    if (m_offered == offered)
        return;
    m_offered = std::move(offered);
    m_list.clear();
    m_list.reserve(static_cast<qsizetype>(m_offered.size()));
    for (const auto &choice : m_offered)
        m_list.append(QVariant::fromValue(choice));
    Q_EMIT choicesChanged();
}

} // namespace palomet

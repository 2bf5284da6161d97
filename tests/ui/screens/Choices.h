#pragma once

#include "localization/Localization.h"
#include "ui/screens/ChoiceSetting.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace palomet::test {

/// The setting of a screen that has that title, given by its key.
template <typename Kind>
[[nodiscard]] Kind *setting(Screen &screen, const char *titleKey) {
    for (auto *setting : screen.findChildren<Kind *>()) {
        if (setting->title() == L(titleKey))
            return setting;
    }
    ADD_FAILURE() << "There is no setting " << titleKey << ".";
    return nullptr;
}

[[nodiscard]] inline QStringList ids(const ChoiceSetting &setting) {
    QStringList ids;
    for (const auto &choice : setting.choices())
        ids.append(choice.value<Choice>().id);
    return ids;
}

[[nodiscard]] inline QStringList titles(const ChoiceSetting &setting) {
    QStringList titles;
    for (const auto &choice : setting.choices())
        titles.append(choice.value<Choice>().title);
    return titles;
}

/// "a b c" as a list.
[[nodiscard]] inline QStringList words(const char *text) {
    return QString::fromUtf8(text).split(u' ');
}

} // namespace palomet::test

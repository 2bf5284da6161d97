#pragma once

#include "ui/screens/Setting.h"

#include <QStringList>

namespace palomet::test {

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

#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

namespace palomet {

/// The language tags of a list of locale names as environment variables hold them, in their order:
/// "pt_BR.UTF-8:sr@latin" is pt-BR, sr-Latn. The locales without a language, C and POSIX, are "en". What names no
/// language is left out.
QStringList languageTags(QStringView localeNames);

/// The one of `available` that serves a reader of `preferred` (language tags, most wanted first) best: Brazilian
/// Portuguese serves one of Portugal. Empty when none does.
QString bestLanguage(const QStringList &preferred, const QStringList &available);

} // namespace palomet

#include "localization/Languages.h"

#include <QRegularExpression>

#include <unicode/localematcher.h>

#include <vector>

namespace palomet {

namespace {

/// Of the modifiers behind the "@" only a script says which language is read; "euro" and the like do not.
QString scriptOf(QStringView modifier) {
    if (modifier == u"latin")
        return QStringLiteral("-Latn");
    if (modifier == u"cyrillic")
        return QStringLiteral("-Cyrl");
    if (modifier == u"devanagari")
        return QStringLiteral("-Deva");
    return {};
}

QString languageTag(const QString &localeName) {
    // language, script, territory, codeset, modifier
    static const QRegularExpression pattern(
        QStringLiteral(R"(\A([a-z]{2,3})(?:[_-]([a-z]{4}))?(?:[_-]([a-z]{2}|[0-9]{3}))?(?:\.[^@]*)?(?:@(.*))?\z)"),
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression none(QStringLiteral(R"(\A(?:C|POSIX)(?:[.@].*)?\z)"));
    if (none.match(localeName).hasMatch())
        return QStringLiteral("en");
    const auto match = pattern.match(localeName);
    if (!match.hasMatch())
        return {};
    QString tag = match.captured(1).toLower();
    if (match.hasCaptured(2))
        tag += u'-' + match.captured(2).at(0).toUpper() + match.captured(2).mid(1).toLower();
    else
        tag += scriptOf(match.capturedView(4));
    if (match.hasCaptured(3))
        tag += u'-' + match.captured(3).toUpper();
    return tag;
}

/// The locale of a language tag, or of a folder named like one; bogus when it names no language.
icu::Locale localeOf(QString tag) {
    UErrorCode error = U_ZERO_ERROR;
    auto locale = icu::Locale::forLanguageTag(tag.replace(u'_', u'-').toStdString(), error);
    if (U_FAILURE(error) || *locale.getLanguage() == '\0')
        locale.setToBogus();
    return locale;
}

} // namespace

QStringList languageTags(QStringView localeNames) {
    QStringList tags;
    for (const auto name : localeNames.split(u':')) {
        const auto tag = languageTag(name.toString());
        if (!tag.isEmpty())
            tags.push_back(tag);
    }
    return tags;
}

QString bestLanguage(const QStringList &preferred, const QStringList &available) {
    UErrorCode error = U_ZERO_ERROR;
    icu::LocaleMatcher::Builder builder;
    builder.setNoDefaultLocale();
    QStringList supported;
    for (const auto &tag : available) {
        if (const auto locale = localeOf(tag); !locale.isBogus()) {
            builder.addSupportedLocale(locale);
            supported.push_back(tag);
        }
    }
    std::vector<icu::Locale> desired;
    for (const auto &tag : preferred) {
        if (auto locale = localeOf(tag); !locale.isBogus())
            desired.push_back(std::move(locale));
    }
    const auto matcher = builder.build(error);
    icu::Locale::RangeIterator wanted(desired.begin(), desired.end());
    const auto index = matcher.getBestMatchResult(wanted, error).getSupportedIndex();
    return U_FAILURE(error) || index < 0 ? QString() : supported[index];
}

} // namespace palomet

#include "localization/Localization.h"

#include "localization/Languages.h"
#include "localization/StringTable.h"
#include "localization/TextFormat.h"

#include <QDebug>
#include <QDir>

namespace palomet {

namespace {

struct Tables {
    QString language = QStringLiteral("en");
    StringTable own;
    StringTable english;
};

/// The tables as `load` read them; nothing else writes here.
Tables &tables() {
    static Tables loaded;
    return loaded;
}

constexpr QLatin1StringView folderSuffix(".lproj");

StringTable readTable(const QDir &resources, const QString &language) {
    const auto path = resources.filePath(language + folderSuffix + QLatin1StringView("/strings.json"));
    auto table = StringTable::read(path);
    if (table)
        return *table;
    qWarning().noquote() << path << "-" << table.reason();
    return {};
}

} // namespace

FormatArgument::FormatArgument(QString text)
    : m_value(std::move(text)) {}
FormatArgument::FormatArgument(int number)
    : m_value(qint64{number}) {}
FormatArgument::FormatArgument(qint64 number)
    : m_value(number) {}
FormatArgument::FormatArgument(double number)
    : m_value(number) {}

void Localization::load(const QString &resources, const QStringList &preferredLanguages) {
    const QDir folder(resources);
    auto languages = folder.entryList({u'*' + folderSuffix}, QDir::Dirs, QDir::Name);
    for (auto &language : languages)
        language.chop(folderSuffix.size());

    Tables loaded;
    const auto english = loaded.language;
    if (languages.contains(english))
        loaded.english = readTable(folder, english);
    const auto best = bestLanguage(preferredLanguages, languages);
    if (best.isEmpty() || best == english) {
        loaded.own = loaded.english;
    } else {
        loaded.language = best;
        loaded.own = readTable(folder, best);
    }
    tables() = std::move(loaded);
}

QStringList Localization::preferredLanguages() {
    for (const char *variable : {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"}) {
        auto tags = languageTags(qEnvironmentVariable(variable));
        if (!tags.isEmpty())
            return tags;
    }
    return {};
}

QString Localization::string(QAnyStringView key) {
    if (const auto text = tables().own.text(key))
        return *text;
    return tables().english.text(key).value_or(key.toString());
}

QString Localization::language() {
    return tables().language;
}

bool Localization::isPortuguese() {
    return tables().language.startsWith(QStringLiteral("pt"), Qt::CaseInsensitive);
}

QString L(QAnyStringView key) {
    return Localization::string(key);
}

QString L(QAnyStringView key, std::initializer_list<FormatArgument> arguments) {
    const auto text = Localization::string(key);
    return arguments.size() == 0 ? text : formatted(text, arguments, QLocale());
}

QString L(QAnyStringView key, const FormatArgument &argument) {
    return L(key, {argument});
}

QString L(QAnyStringView key, Count count) {
    const auto form = count.value == 1 ? QStringLiteral(".one") : QStringLiteral(".other");
    return L(key.toString() + form, {count.value});
}

} // namespace palomet

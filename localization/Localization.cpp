#include "localization/Localization.h"

#include "localization/Languages.h"
#include "localization/StringTable.h"
#include "localization/TextFormat.h"

#include <QDebug>
#include <QDir>

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

struct Tables {
    QString language = u"en"_s;
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
    const auto path = resources.filePath(language + folderSuffix + "/strings.json"_L1);
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

void localization::load(const QString &resources, const QStringList &preferredLanguages) {
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

QStringList localization::preferredLanguages() {
    for (const char *variable : {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"}) {
        auto tags = languageTags(qEnvironmentVariable(variable));
        if (!tags.isEmpty())
            return tags;
    }
    return {};
}

QString localization::string(QAnyStringView key) {
    if (const auto text = tables().own.text(key))
        return *text;
    return tables().english.text(key).value_or(key.toString());
}

QString localization::language() {
    return tables().language;
}

bool localization::isPortuguese() {
    return tables().language.startsWith(u"pt"_s, Qt::CaseInsensitive);
}

QString L(QAnyStringView key) {
    return localization::string(key);
}

QString L(QAnyStringView key, std::initializer_list<FormatArgument> arguments) {
    const auto text = localization::string(key);
    return arguments.size() == 0 ? text : formatted(text, arguments, QLocale());
}

QString L(QAnyStringView key, const FormatArgument &argument) {
    return L(key, {argument});
}

QString L(QAnyStringView key, Count count) {
    const auto form = count.value == 1 ? u".one"_s : u".other"_s;
    return L(key.toString() + form, {count.value});
}

} // namespace palomet

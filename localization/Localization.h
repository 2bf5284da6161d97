#pragma once

#include <QAnyStringView>
#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <initializer_list>
#include <variant>

namespace palomet {

/// One argument of a text, with its kind: a text is never read as a number nor a number as a text, whatever the table
/// asks for.
class FormatArgument {
public:
    FormatArgument(QString text);
    FormatArgument(int number);
    FormatArgument(qint64 number);
    FormatArgument(double number);

    [[nodiscard]] const std::variant<QString, qint64, double> &value() const { return m_value; }

private:
    std::variant<QString, qint64, double> m_value;
};

/// How many there are of something; chooses the plural form of a text.
struct Count {
    qint64 value;
};

/// Every text that a user sees is written in code as a key and turned into words when it is shown. The tables are read
/// once, at start, before any other thread; after that they only answer.
namespace Localization {

/// Reads the string tables of the resource folder: the best match for the user's languages (language tags, most wanted
/// first) among the `.lproj` folders that exist, and English to fall back on. Missing or unreadable tables are empty.
/// Called again, it replaces what was read (tests do).
void load(const QString &resources, const QStringList &preferredLanguages);

/// The user's languages as the environment names them, as language tags in its order.
QStringList preferredLanguages();

/// The text of a key: in the user's language, else in English, else the key itself.
QString string(QAnyStringView key);

/// The language that was chosen, as its folder is named; "en" when there is none.
QString language();

/// Whether that language is any Portuguese.
bool isPortuguese();

} // namespace Localization

/// The text of a key as it stands; a "%" in it is left alone.
QString L(QAnyStringView key);

/// The text of a key with its arguments put in, numbers as the user's region writes them.
QString L(QAnyStringView key, std::initializer_list<FormatArgument> arguments);
QString L(QAnyStringView key, const FormatArgument &argument);

/// The plural form: the text of the key with ".one" appended for exactly one, ".other" for every other count, formatted
/// with the count.
QString L(QAnyStringView key, Count count);

} // namespace palomet

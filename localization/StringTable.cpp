#include "localization/StringTable.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

namespace palomet {

Result<StringTable> StringTable::parse(QByteArrayView json) {
    if (json.size() > maximumSize)
        return Failure{QStringLiteral("larger than %1 bytes").arg(maximumSize)};
    QJsonParseError error;
    const auto document = QJsonDocument::fromJson(json.toByteArray(), &error);
    if (error.error != QJsonParseError::NoError)
        return Failure{QStringLiteral("%1 at byte %2").arg(error.errorString()).arg(error.offset)};
    if (!document.isObject())
        return Failure{QStringLiteral("not an object of keys and texts")};

    StringTable table;
    const auto object = document.object();
    table.m_texts.reserve(object.size());
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        const auto text = entry.value().toString();
        if (entry.value().isString() && text.isValidUtf16())
            table.m_texts.insert(entry.key(), text);
    }
    return table;
}

Result<StringTable> StringTable::read(const QString &path) {
    QFile file(path);
    // Opening a pipe would wait for its writer.
    if (!QFileInfo(path).isFile())
        return Failure{QStringLiteral("no such file")};
    if (!file.open(QIODevice::ReadOnly))
        return Failure{file.errorString()};
    return parse(file.read(maximumSize + 1));
}

std::optional<QString> StringTable::text(QAnyStringView key) const {
    const auto found = m_texts.constFind(key.toString());
    return found == m_texts.cend() ? std::nullopt : std::optional(*found);
}

} // namespace palomet

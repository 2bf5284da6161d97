#include "ui/screens/TextValue.h"

#include "model/SettingKey.h"

#include <QJsonArray>
#include <QStringList>

namespace palomet {

namespace {

QString joined(const std::vector<QString> &texts) {
    return QStringList(texts.begin(), texts.end()).join(QStringLiteral(", "));
}

QJsonValue split(const QString &text) {
    QJsonArray texts;
    for (const auto &piece : text.split(u',')) {
        if (const auto trimmed = piece.trimmed(); !trimmed.isEmpty())
            texts.append(trimmed);
    }
    return texts;
}

} // namespace

TextValue plainText(QString Snapshot::Settings::*member) {
    return {.key = settingKey(member),
            .read = [member](const auto &settings) { return settings.*member; },
            .encoded = [](const QString &text) { return QJsonValue(text); }};
}

TextValue textList(std::vector<QString> Snapshot::Settings::*member) {
    return {.key = settingKey(member),
            .read = [member](const auto &settings) { return joined(settings.*member); },
            .encoded = &split};
}

TextValue textList(std::optional<std::vector<QString>> Snapshot::Settings::*member) {
    const auto read = [member](const Snapshot::Settings &settings) {
        return joined((settings.*member).value_or(std::vector<QString>()));
    };
    return {.key = settingKey(member), .read = read, .encoded = &split};
}

} // namespace palomet

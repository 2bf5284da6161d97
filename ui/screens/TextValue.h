#pragma once

#include "model/Snapshot.h"

#include <QJsonValue>

#include <functional>

namespace palomet {

/// How a setting is read and sent that is edited as a line of text.
struct TextValue {
    QString key; ///< What the settings command calls the setting.
    std::function<QString(const Snapshot::Settings &settings)> read;
    std::function<QJsonValue(const QString &text)> encoded;
};

/// A text, as it stands.
[[nodiscard]] TextValue plainText(QString Snapshot::Settings::*member);

/// A list of texts, with commas between them. What is blank between two commas is none of them.
[[nodiscard]] TextValue textList(std::vector<QString> Snapshot::Settings::*member);
[[nodiscard]] TextValue textList(std::optional<std::vector<QString>> Snapshot::Settings::*member);

} // namespace palomet

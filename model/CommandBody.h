#pragma once

#include <QByteArray>
#include <QJsonValue>
#include <QString>

namespace palomet {

/// The JSON object of that one key and value, as commands send it. Empty when JSON has no way to write the value: a
/// number that is not finite, a text with half a character, no value at all.
[[nodiscard]] QByteArray commandBody(const QString &key, const QJsonValue &value);

} // namespace palomet

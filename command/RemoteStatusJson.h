#pragma once

#include "command/RemoteStatus.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace palomet {

/// The status as it travels and as `--status --json` prints it, one line.
inline QString toJson(const RemoteStatus &status) {
    return QString::fromUtf8(QJsonDocument(QJsonObject{{QStringLiteral("state"), status.state},
                                                       {QStringLiteral("device"), status.device},
                                                       {QStringLiteral("isMuted"), status.isMuted},
                                                       {QStringLiteral("isMicrophoneOn"), status.isMicrophoneOn},
                                                       {QStringLiteral("hotKeyProblem"), status.hotKeyProblem}})
                                 .toJson(QJsonDocument::Compact));
}

inline RemoteStatus statusFromJson(const QString &json) {
    const auto object = QJsonDocument::fromJson(json.toUtf8()).object();
    return {object[QStringLiteral("state")].toString(), object[QStringLiteral("device")].toString(),
            object[QStringLiteral("isMuted")].toBool(), object[QStringLiteral("isMicrophoneOn")].toBool(),
            object[QStringLiteral("hotKeyProblem")].toString()};
}

} // namespace palomet

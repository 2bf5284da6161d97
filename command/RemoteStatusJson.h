#pragma once

#include "command/RemoteStatus.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace palomet {

using namespace Qt::StringLiterals;

/// The status as it travels and as `--status --json` prints it, one line.
inline QString toJson(const RemoteStatus &status) {
    return QString::fromUtf8(QJsonDocument(QJsonObject{{u"state"_s, status.state},
                                                       {u"device"_s, status.device},
                                                       {u"isMuted"_s, status.isMuted},
                                                       {u"isMicrophoneOn"_s, status.isMicrophoneOn},
                                                       {u"hotKeyProblem"_s, status.hotKeyProblem}})
                                 .toJson(QJsonDocument::Compact));
}

inline RemoteStatus statusFromJson(const QString &json) {
    const auto object = QJsonDocument::fromJson(json.toUtf8()).object();
    return {object[u"state"_s].toString(), object[u"device"_s].toString(), object[u"isMuted"_s].toBool(),
            object[u"isMicrophoneOn"_s].toBool(), object[u"hotKeyProblem"_s].toString()};
}

} // namespace palomet

#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>
#include <variant>

namespace palomet {

/// A request of the backend to the front end's sound.
namespace link {

/// Play this encoded clip.
struct Play {
    qint64 id = 0;
    QByteArray data;
    QString format; ///< As a file extension; not checked here.
    bool operator==(const Play &) const = default;
};
/// A clip to be played whose data is more than is ever held.
struct OversizedClip {
    qint64 id = 0;
    bool operator==(const OversizedClip &) const = default;
};
/// Be silent now.
struct Stop {
    bool operator==(const Stop &) const = default;
};
/// Open or release the microphone.
struct Enable {
    bool isOn = true;
    bool operator==(const Enable &) const = default;
};
/// Play the local sound.
struct Chime {
    bool operator==(const Chime &) const = default;
};
/// Hear with this device, or with the default one.
struct Input {
    std::optional<QString> device;
    bool operator==(const Input &) const = default;
};

using Message = std::variant<Play, OversizedClip, Stop, Enable, Chime, Input>;

/// The message that a text holds, which is no `OversizedClip`; nothing when it is none, or one that is to be ignored.
/// Base64 is taken strictly: the standard alphabet, padded, nothing else. Pure; any thread.
std::optional<Message> parse(QByteArrayView utf8);

} // namespace link

} // namespace palomet

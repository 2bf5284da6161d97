#pragma once

#include <QByteArray>

namespace palomet::bench {

/// An mp3 file of so many seconds of something like a voice, at 24 kHz in one channel as speech synthesis sends it.
/// Empty when it could not be written.
[[nodiscard]] QByteArray spokenClip(int seconds);

} // namespace palomet::bench

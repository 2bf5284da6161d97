#pragma once

#include "base/Result.h"

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <vector>

namespace palomet {

/// Speech ready to be played: 48 kHz mono.
using ClipSamples = std::vector<float>;

/// Most that one decoded clip may hold in memory: 256 MiB, over twenty minutes of speech.
inline constexpr std::size_t maximumClipBytes = std::size_t{256} * 1024 * 1024;

/// Decodes one audio file (mp3, wav, aiff, flac, ogg, opus) to 48 kHz mono: channels averaged, resampled to
/// ⌊frames × 48000 ÷ rate⌋ frames. `extension` is 1 to 8 letters or digits and the data must be what it says; anything
/// else is a failure with the reason in words. A file cut off in the middle gives what it holds. Pure; any thread.
Result<ClipSamples> decodeClip(const QByteArray &data, const QString &extension);

} // namespace palomet

#pragma once

#include <QByteArrayView>

#include <optional>

namespace palomet {

/// The offset at which an mp3 begins that has something else in front of it: the first of three frames in a row that
/// are of one stream, or of two behind which the data ends. Nothing when there is none. Pure; any thread.
std::optional<qsizetype> findMp3(QByteArrayView data);

} // namespace palomet

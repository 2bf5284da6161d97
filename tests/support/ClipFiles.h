#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace palomet::test {

/// Which kind of file is to be written: a major and a minor format as libsndfile names them.
struct ClipFormat {
    const char *extension;
    int format;
};

/// Every kind of file that a clip may come as.
std::vector<ClipFormat> clipFormats();

struct Clip {
    int rate = 24000;
    int channels = 1;
    std::vector<float> samples; ///< Interleaved.
};

/// One second, or as long as is said, of a sine in every channel, at half of full scale.
Clip sine(int rate, double frequency = 440, int channels = 1, double seconds = 1);

/// The clip as a file in memory. The test fails, and the file is empty, where the format cannot be written.
QByteArray encode(const Clip &clip, int format);

} // namespace palomet::test

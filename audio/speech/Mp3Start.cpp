#include "audio/speech/Mp3Start.h"

#include <array>

namespace palomet {
namespace {

struct Frame {
    unsigned version = 0; ///< 3 is MPEG 1, 2 is MPEG 2, 0 is MPEG 2.5.
    unsigned rateIndex = 0;
    qsizetype size = 0;
};

/// The layer III frame that these bytes begin with.
std::optional<Frame> frameAt(QByteArrayView bytes) {
    constexpr std::array kilobits{std::array{32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320},
                                  std::array{8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160}};
    constexpr std::array rates{44100, 48000, 32000};
    if (bytes.size() < 4)
        return {};
    const auto at = [&](qsizetype i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned version = at(1) >> 3 & 3U;
    const unsigned layer = at(1) >> 1 & 3U;
    const unsigned rateIndex = at(2) >> 2 & 3U;
    const std::size_t kilobitIndex = at(2) >> 4U;
    if (at(0) != 0xff || at(1) < 0xe0 || version == 1 || layer != 1 || rateIndex == 3 || kilobitIndex == 0 ||
        kilobitIndex == 15)
        return {};
    const bool isFirst = version == 3;
    const int rate = rates[rateIndex] >> (isFirst ? 0 : version == 2 ? 1 : 2);
    const int bits = kilobits[isFirst ? 0 : 1][kilobitIndex - 1] * 1000;
    const int padding = at(2) >> 1 & 1;
    return Frame{version, rateIndex, (isFirst ? 144 : 72) * bits / rate + padding};
}

bool isStart(QByteArrayView data) {
    const auto first = frameAt(data);
    int count = 0;
    for (auto frame = first; frame && frame->version == first->version && frame->rateIndex == first->rateIndex;) {
        if (++count == 3)
            return true;
        if (frame->size >= data.size())
            return count == 2;
        data = data.sliced(frame->size);
        frame = frameAt(data);
    }
    return false;
}

} // namespace

std::optional<qsizetype> findMp3(QByteArrayView data) {
    for (auto at = data.indexOf('\xff'); at >= 0; at = data.indexOf('\xff', at + 1)) {
        if (isStart(data.sliced(at)))
            return at;
    }
    return {};
}

} // namespace palomet

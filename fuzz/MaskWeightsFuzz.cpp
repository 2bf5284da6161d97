#include "audio/echo/MaskNetwork.h"

#include <QByteArray>
#include <QCryptographicHash>

#include <cmath>
#include <cstdlib>

using namespace palomet::echo;

namespace {

void run(QByteArrayView file) {
    const auto weights = MaskWeights::parse(file);
    if (!weights)
        return;
    MaskNetwork network(*weights);
    MaskFeatures::Values features{};
    features.fill(1);
    for (int i = 0; i < 3; ++i) {
        const auto [gains, voice] = network.process(features);
        for (const float gain : gains) {
            if (!(gain >= 0 && gain <= 1))
                std::abort();
        }
        if (!(voice >= 0 && voice <= 1))
            std::abort();
    }
}

} // namespace

// The bytes as a file of weights, and as the weights of a file that is otherwise right.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size) {
    const QByteArrayView bytes(data, static_cast<qsizetype>(size));
    run(bytes);

    constexpr qsizetype bodySize = 2 * ((110 + 1) * 96 + 2 * (96 + 1) * 288 + (96 + 1) * 23);
    static const QByteArray head("PALOMASK\1\0\0\0\x6e\0\0\0\x60\0\0\0\x17\0\0\0", 24);
    QByteArray body;
    while (size > 0 && body.size() < bodySize)
        body.append(bytes);
    body.resize(bodySize);
    run(head + QCryptographicHash::hash(body, QCryptographicHash::Sha256) + body);
    return 0;
}

#include "audio/echo/MaskWeights.h"

#include <QCryptographicHash>
#include <QFile>
#include <QtEndian>

#include <bit>
#include <cmath>

namespace palomet::echo {

using namespace Qt::StringLiterals;

namespace {

constexpr QByteArrayView magic("PALOMASK");
constexpr std::array<quint32, 4> shape{1, MaskWeights::features, MaskWeights::units, MaskWeights::outputs};
constexpr qsizetype hashSize = 32;
constexpr qsizetype headerSize = magic.size() + qsizetype{sizeof(shape)} + hashSize;

constexpr qsizetype sizeOf(std::size_t inputs, std::size_t outputs) {
    return static_cast<qsizetype>(inputs + 1) * static_cast<qsizetype>(outputs * sizeof(quint16));
}

constexpr qsizetype bodySize = sizeOf(MaskWeights::features, MaskWeights::units) +
                               2 * sizeOf(MaskWeights::units, 3 * MaskWeights::units) +
                               sizeOf(MaskWeights::units, MaskWeights::outputs);

/// Numbers of 16 bits, read one after the other.
class Numbers {
public:
    explicit Numbers(QByteArrayView bytes)
        : m_bytes(bytes) {}

    float next() {
        const auto bits = qFromLittleEndian<quint16>(m_bytes.data() + m_read);
        m_read += sizeof(quint16);
        const int exponent = (bits >> 10) & 31;
        const int fraction = bits & 1023;
        m_isFinite = m_isFinite && exponent < 31;
        const float size = exponent == 0 ? std::ldexp(static_cast<float>(fraction), -24)
                                         : std::ldexp(static_cast<float>(1024 + fraction), exponent - 25);
        return (bits & 0x8000) != 0 ? -size : size;
    }

    template <typename Layer>
    void read(Layer &layer) {
        for (std::size_t output = 0; output < layer.biases.size(); ++output) {
            for (auto &weights : layer.weights)
                weights[output] = next();
        }
        for (float &bias : layer.biases)
            bias = next();
    }

    [[nodiscard]] bool areFinite() const { return m_isFinite; }

private:
    QByteArrayView m_bytes;
    qsizetype m_read = 0;
    bool m_isFinite = true;
};

} // namespace

Result<std::shared_ptr<const MaskWeights>> MaskWeights::parse(QByteArrayView file) {
    if (!file.startsWith(magic) || file.size() < headerSize)
        return Failure{u"it is no such file"_s};
    const auto *const numbers = file.data() + magic.size();
    for (std::size_t i = 0; i < shape.size(); ++i) {
        if (qFromLittleEndian<quint32>(numbers + i * sizeof(quint32)) != shape[i])
            return Failure{u"it is of another version"_s};
    }
    const auto body = file.sliced(headerSize);
    if (body.size() != bodySize ||
        QCryptographicHash::hash(body, QCryptographicHash::Sha256) != file.sliced(headerSize - hashSize, hashSize))
        return Failure{u"it is damaged"_s};
    auto weights = std::make_shared<MaskWeights>();
    Numbers all(body);
    all.read(weights->entry);
    all.read(weights->input);
    all.read(weights->recurrent);
    all.read(weights->exit);
    if (!all.areFinite())
        return Failure{u"it is damaged"_s};
    return std::shared_ptr<const MaskWeights>(std::move(weights));
}

Result<std::shared_ptr<const MaskWeights>> MaskWeights::read(const QString &resources) {
    QFile file(resources + u"/echo-mask.bin"_s);
    if (!file.open(QIODevice::ReadOnly))
        return Failure{file.errorString()};
    // A byte more than there may be shows that there are too many.
    return parse(file.read(headerSize + bodySize + 1));
}

} // namespace palomet::echo

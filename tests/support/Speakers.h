#pragma once

#include "audio/speech/ClipDecoder.h"
#include "tests/support/Eventually.h"
#include "tests/support/FakeSoundServer.h"

#include <QObject>

#include <vector>

namespace palomet::test {

/// A decoder that a test can see through: "250" is 250 frames of one half, anything that is no number fails.
inline Result<ClipSamples> decodeNumber(const QByteArray &data, const QString &extension) {
    bool isNumber = false;
    const auto count = data.toULongLong(&isNumber);
    if (!isNumber)
        return Failure{QStringLiteral("no %1").arg(extension)};
    return ClipSamples(count, 0.5F);
}

/// The speakers of a fake sound server, turned by hand, and what came out of them.
class Speakers {
public:
    explicit Speakers(FakeSoundServer &server)
        : m_server(server) {}

    std::vector<float> given; ///< Since the stream was opened.

    std::vector<float> pull(std::size_t count = 480) {
        const auto samples = m_server.pull(count);
        given.insert(given.end(), samples.begin(), samples.end());
        return samples;
    }
    /// All that they were given has been heard.
    void hearAll() { m_server.hear(static_cast<std::int64_t>(given.size())); }

    /// The speakers play and everything is heard at once, until `holds`.
    template <typename Condition>
    bool speakUntil(Condition holds) {
        return eventually([&] {
            if (holds())
                return true;
            pull();
            hearAll();
            QMetaObject::invokeMethod(
                &m_again, [] {}, Qt::QueuedConnection);
            return false;
        });
    }

    /// Plays until a clip of `decodeNumber` sounds; nothing is heard of it yet.
    bool playUntilSound() {
        return eventually([&] { return isSounding(); });
    }
    /// Whether the next samples begin with sound.
    bool isSounding() {
        const auto samples = pull();
        return !samples.empty() && samples.front() == 0.5F;
    }

private:
    FakeSoundServer &m_server;
    QObject m_again;
};

} // namespace palomet::test

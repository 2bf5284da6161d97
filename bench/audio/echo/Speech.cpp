#include "bench/audio/echo/Speech.h"

#include "audio/speech/ClipDecoder.h"

#include <QProcess>

namespace palomet::bench {
namespace {

constexpr double pause = 0.3; // Seconds.

} // namespace

Result<Signal> Speaker::say(const Voice &voice, const QString &sentence) {
    const auto name = QString::fromLatin1(voice.name);
    const auto known = m_said.find({name, sentence});
    if (known != m_said.end())
        return known->second;

    QProcess speech;
    speech.start(QStringLiteral("espeak-ng"),
                 {QStringLiteral("-v"), name, QStringLiteral("-s"), QString::number(voice.wordsPerMinute),
                  QStringLiteral("--stdout"), sentence});
    if (!speech.waitForFinished() || speech.exitStatus() != QProcess::NormalExit || speech.exitCode() != 0)
        return Failure{QStringLiteral("espeak-ng: ") + speech.errorString()};
    auto samples = decodeClip(speech.readAllStandardOutput(), QStringLiteral("wav"));
    if (samples)
        m_said[{name, sentence}] = *samples;
    return samples;
}

Result<Speaker::Talk> Speaker::talk(const Voice &voice, const std::vector<QString> &sentences, std::size_t first,
                                    double seconds) {
    Talk talk;
    const auto length = samplesIn(seconds);
    for (auto i = first;; ++i) {
        const auto &sentence = sentences[i % sentences.size()];
        const auto said = say(voice, sentence);
        if (!said)
            return Failure{said.reason()};
        if (talk.signal.size() + said->size() > length)
            break;
        const auto from = static_cast<double>(talk.signal.size()) / sampleRate;
        talk.signal.insert(talk.signal.end(), said->begin(), said->end());
        talk.sentences.push_back({sentence, from, static_cast<double>(talk.signal.size()) / sampleRate});
        talk.signal.resize(talk.signal.size() + samplesIn(pause));
    }
    talk.signal.resize(length);
    return talk;
}

std::vector<QString> programSentences() {
    return {
        QStringLiteral(
            "Good morning. There are three messages waiting for you, and the first of them is about Friday."),
        QStringLiteral("I moved the meeting to half past four, since the larger room was taken until then."),
        QStringLiteral("The build has finished without a single warning, which took a little under nine minutes."),
        QStringLiteral("Rain is expected in the afternoon, so you may want to leave the bicycle at home today."),
        QStringLiteral("I found two places where the same file is opened twice. Shall I show you both of them?"),
        QStringLiteral("Your sister called while you were away and asked whether the weekend still suits you."),
        QStringLiteral("The train leaves from platform seven, but it has been running late all through the week."),
        QStringLiteral("I wrote a short summary of the discussion and put it beside the notes from last month."),
        QStringLiteral("Nobody has answered the question about the budget yet, though everyone has read it."),
        QStringLiteral("The backup was done during the night, and all of the checks came out as they should."),
    };
}

std::vector<QString> userSentences() {
    return {
        QStringLiteral("turn on the light in the kitchen"),
        QStringLiteral("open the window in the bedroom"),
        QStringLiteral("read me the last message"),
        QStringLiteral("stop the music and close the door"),
        QStringLiteral("what time is it now"),
        QStringLiteral("send the message to my brother"),
        QStringLiteral("turn the music down in the kitchen"),
        QStringLiteral("close the window and turn off the light"),
        QStringLiteral("read the first message again"),
        QStringLiteral("what is the time of the last train"),
        QStringLiteral("open the door to my brother"),
        QStringLiteral("send me the time of the first train"),
    };
}

} // namespace palomet::bench
